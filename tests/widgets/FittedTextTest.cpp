#include "render/Canvas.h"
#include "widgets/FittedText.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

/// A figure of the display face is 0.53 of its size wide.
class FittedTextTest : public ViewTest {
 protected:
  FittedTextTest() {
    Open(240, 320);
    theCanvas.BeginFrame(window);
  }

  static int SizeFor(const WideString& text, int largest, SIZE available) {
    return FittedText(theCanvas, TEXT("LCD"), largest, text, available).GetFontSize();
  }
};

TEST_F(FittedTextTest, TakesTheLargestSizeThatFits) {
  // 3 * 0.53 * 140 = 222.6
  EXPECT_EQ(140, SizeFor(TEXT("888"), 140, {240, 300}));
  // 4 * 0.53 * 115 = 243.8, * 110 = 233.2
  EXPECT_EQ(110, SizeFor(TEXT("8888"), 140, {240, 300}));
  EXPECT_EQ(110, SizeFor(TEXT("8888"), 170, {240, 300}));
}

TEST_F(FittedTextTest, FitsTheHeightToo) {
  EXPECT_EQ(45, SizeFor(TEXT("8"), 70, {240, 48}));
  EXPECT_EQ(50, SizeFor(TEXT("8"), 70, {240, 50}));
}

/// All figures are equally wide: pictures of 23:59:59 show the room that any time needs.
TEST_F(FittedTextTest, TakesAllFiguresForEquallyWide) {
  for (const WCHAR* time : {TEXT("00:00:00"), TEXT("11:11:11"), TEXT("99:59:59")}) {
    const FittedText any(theCanvas, TEXT("LCD"), 70, time, {240, 300});
    const FittedText last(theCanvas, TEXT("LCD"), 70, TEXT("23:59:59"), {240, 300});
    EXPECT_EQ(last.GetFontSize(), any.GetFontSize());
    EXPECT_EQ(last.GetExtent().cx, any.GetExtent().cx);
  }
}

TEST_F(FittedTextTest, EndsAtFive) {
  EXPECT_EQ(5, SizeFor(TEXT("888"), 170, {0, 0}));
  EXPECT_EQ(5, SizeFor(TEXT("888"), 70, {240, -10}));
}

TEST_F(FittedTextTest, KeepsAnEmptyTextLarge) {
  EXPECT_EQ(140, SizeFor(TEXT(""), 140, {240, 300}));
}

TEST_F(FittedTextTest, FreesItsFonts) {
  const int objects = handheld::GdiObjectsAlive();
  SizeFor(TEXT("888"), 170, {0, 0});
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

}  // namespace

}  // namespace ferolin
