#include <handheld.h>

#include "FrameTest.h"
#include "base/CodePage.h"
#include "render/TextStyle.h"

namespace ferolin {

namespace {

class TextTest : public FrameTest {
 protected:
  TextTest() {
    AddFontResourceW(handheld::DevicePath(ASSETS_FOLDER "/lcd-u.ttf").c_str());
    Open(240, 320);
  }
  ~TextTest() override {
    RemoveFontResourceW(handheld::DevicePath(ASSETS_FOLDER "/lcd-u.ttf").c_str());
  }
};

TEST_F(TextTest, MakesFontsWithThatHeightOfTheCell) {
  for (const int height : {14, 40, 140}) {
    const Font font = theCanvas.MakeFont(TEXT("LCD"), height, 0);
    EXPECT_EQ(height, theCanvas.MeasureText(font.get(), TEXT("88")).cy) << height;
  }
}

TEST_F(TextTest, DescribesTheFontAsAsked) {
  const Font font = theCanvas.MakeFontA("Times New Roman", 28, -129);
  LOGFONTW description = {};
  ASSERT_NE(0, GetObjectW(font.get(), sizeof description, &description));
  EXPECT_EQ(28, description.lfHeight);
  EXPECT_EQ(-1290, description.lfEscapement);
  EXPECT_EQ(-1290, description.lfOrientation);
  EXPECT_EQ(400, description.lfWeight);
  EXPECT_EQ(0, description.lfWidth);
  EXPECT_EQ(0, description.lfItalic);
  EXPECT_EQ(0, description.lfUnderline);
  EXPECT_EQ(0, description.lfStrikeOut);
  EXPECT_EQ(0, description.lfCharSet);
  EXPECT_EQ(0, description.lfOutPrecision);
  EXPECT_EQ(0, description.lfClipPrecision);
  EXPECT_EQ(0, description.lfQuality);
  EXPECT_EQ(0, description.lfPitchAndFamily);
  EXPECT_EQ(TEXT("Times New Roman"), WideString(description.lfFaceName));
}

TEST_F(TextTest, CutsAFaceNameThatIsTooLong) {
  const Font font = theCanvas.MakeFont(WideString(100, 'x'), 20, 0);
  LOGFONTW description = {};
  ASSERT_NE(0, GetObjectW(font.get(), sizeof description, &description));
  EXPECT_EQ(WideString(31, 'x'), WideString(description.lfFaceName));
}

TEST_F(TextTest, MeasuresTwiceAsMuchForTwiceTheFigures) {
  const Font font = theCanvas.MakeFont(TEXT("LCD"), 40, 0);
  const SIZE one = theCanvas.MeasureText(font.get(), TEXT("88"));
  const SIZE two = theCanvas.MeasureText(font.get(), TEXT("8888"));
  EXPECT_NEAR(2 * one.cx, two.cx, 1);
  EXPECT_EQ(one.cy, two.cy);
  EXPECT_EQ(0, CountInk()) << "measuring draws nothing";
}

TEST_F(TextTest, DrawsInsideTheMeasuredBoxFromItsTopLeftCorner) {
  const Font font = theCanvas.MakeFont(TEXT("LCD"), 40, 0);
  const SIZE size = theCanvas.MeasureText(font.get(), TEXT("888"));
  theCanvas.DrawText(font.get(), TEXT("888"), 50, 100, GREEN);
  const RECT ink = InkBounds();
  EXPECT_GE(ink.left, 50);
  EXPECT_GE(ink.top, 100);
  EXPECT_LE(ink.right, 50 + size.cx);
  EXPECT_LE(ink.bottom, 100 + size.cy);
  EXPECT_GT(CountInk(), 200);
}

TEST_F(TextTest, LeavesTheBackgroundBetweenTheLetters) {
  theCanvas.FillBackground(BLUE);
  const Font font = theCanvas.MakeFont(TEXT("LCD"), 40, 0);
  theCanvas.DrawText(font.get(), TEXT("1"), 50, 100, GREEN);
  EXPECT_EQ(BLUE, At(50, 100));
}

TEST_F(TextTest, PutsBackColourModeAndFont) {
  const HDC dc = theCanvas.GetDrawingDC();
  SetTextColor(dc, RED);
  SetBkMode(dc, OPAQUE);
  Font font = theCanvas.MakeFont(TEXT("LCD"), 40, 0);
  theCanvas.DrawText(font.get(), TEXT("8"), 0, 0, GREEN);
  EXPECT_EQ(RED, SetTextColor(dc, BLACK));
  EXPECT_EQ(OPAQUE, SetBkMode(dc, OPAQUE));
  EXPECT_TRUE(DeleteObject(font.release())) << "it is not selected";
}

TEST_F(TextTest, TurnsTextCounterClockwise) {
  const Font font = theCanvas.MakeFont(TEXT("LCD"), 20, 90);
  theCanvas.DrawText(font.get(), TEXT("8888"), 100, 200, GREEN);
  const RECT ink = InkBounds();
  EXPECT_GT(ink.bottom - ink.top, ink.right - ink.left);
  EXPECT_LE(ink.bottom, 201) << "the line runs upwards from the corner";
  EXPECT_GE(ink.left, 99) << "and the letters' tops point to the left";
}

TEST_F(TextTest, StyleMakesItsFontOnceAndFreesIt) {
  const int objects = handheld::GdiObjectsAlive();
  {
    TextStyle style;
    style.face = "LCD";
    style.size = 32;
    EXPECT_EQ(objects, handheld::GdiObjectsAlive()) << "not before it is needed";
    const HFONT font = style.GetFont(theCanvas);
    EXPECT_EQ(font, style.GetFont(theCanvas));
    EXPECT_EQ(objects + 1, handheld::GdiObjectsAlive());
    EXPECT_EQ(32, theCanvas.MeasureText(font, TEXT("8")).cy);
  }
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

}  // namespace

}  // namespace ferolin
