#include "render/Canvas.h"
#include "widgets/ScaledPicture.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

class ScaledPictureTest : public ViewTest {
 protected:
  ScaledPictureTest() {
    Open(320, 240);
    theCanvas.BeginFrame(window);
    picture.Load(Path());
  }

  WideString Path() const { return folder.DevicePath("Pics/speedometer.png"); }

  static std::vector<COLORREF> Frame() {
    std::vector<COLORREF> pixels;
    for (int y = 0; y < 240; ++y) {
      for (int x = 0; x < 320; ++x) {
        pixels.push_back(GetPixel(theCanvas.GetDrawingDC(), x, y));
      }
    }
    return pixels;
  }

  std::vector<COLORREF> Drawn(const RECT& rect, COLORREF background) {
    theCanvas.FillBackground(background);
    picture.Draw(theCanvas.GetDrawingDC(), rect, background);
    return Frame();
  }

  /// Pixels of a frame that the picture itself is blended into.
  std::vector<COLORREF> Blended(const RECT& rect, COLORREF background) const {
    theCanvas.FillBackground(background);
    LoadPicture(Path())->DrawBlended(theCanvas.GetDrawingDC(), rect, 255);
    return Frame();
  }

  ScaledPicture picture;
};

TEST_F(ScaledPictureTest, LooksAsIfBlendedInEveryFrame) {
  const RECT first = {0, 15, 255, 230};
  const RECT moved = {40, 5, 295, 220};
  const RECT smaller = {10, 10, 110, 94};
  const std::pair<RECT, COLORREF> frames[] = {
      {first, RGB(0, 0, 0)},       {first, RGB(0, 0, 0)},     {moved, RGB(0, 0, 0)},
      {smaller, RGB(0, 0, 0)},     {smaller, RGB(0, 0, 255)}, {first, RGB(0, 0, 255)},
      {first, RGB(255, 255, 255)},
  };
  for (const auto& [rect, background] : frames) {
    EXPECT_EQ(Blended(rect, background), Drawn(rect, background));
  }
}

TEST_F(ScaledPictureTest, DrawsNothingWithoutItsPicture) {
  picture.Load(folder.DevicePath("missing.png"));
  EXPECT_FALSE(picture.IsLoaded());
  EXPECT_EQ(0, picture.GetSize().cx);
  const auto frame = Drawn({0, 15, 255, 230}, RGB(0, 0, 0));
  EXPECT_EQ(std::vector<COLORREF>(frame.size(), RGB(0, 0, 0)), frame);
}

TEST_F(ScaledPictureTest, KeepsOneCopyOnly) {
  Drawn({0, 15, 255, 230}, RGB(0, 0, 0));
  const int objects = handheld::GdiObjectsAlive();
  Drawn({0, 15, 255, 230}, RGB(0, 0, 255));
  Drawn({0, 15, 155, 130}, RGB(0, 0, 0));
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

}  // namespace

}  // namespace ferolin
