#include <handheld.h>

#include <set>

#include "FrameTest.h"
#include "render/Canvas.h"
#include "render/InvertFlags.h"

namespace ferolin {

namespace {

using CanvasTest = FrameTest;
using Point = std::pair<int, int>;

TEST_F(CanvasTest, HasNoFrameBeforeTheFirstOne) {
  const RECT frame = theCanvas.GetFrameRect();
  EXPECT_EQ(0, frame.right);
  EXPECT_EQ(0, frame.bottom);
  EXPECT_EQ(nullptr, theCanvas.GetDrawingDC());
  EXPECT_EQ(nullptr, theCanvas.GetPresentDC());
}

struct FrameCase {
  int width, height, dpi;
  bool orient;
  int frameWidth, frameHeight;
};

class FrameSize : public FrameTest, public testing::WithParamInterface<FrameCase> {};

TEST_P(FrameSize, IsTheWindowsAt96Dpi) {
  const FrameCase& param = GetParam();
  theInvertFlags.orient = param.orient ? 1 : 0;
  Open(param.width, param.height, param.dpi);
  const RECT frame = theCanvas.GetFrameRect();
  EXPECT_EQ(0, frame.left);
  EXPECT_EQ(0, frame.top);
  EXPECT_EQ(param.frameWidth, frame.right);
  EXPECT_EQ(param.frameHeight, frame.bottom);
}

INSTANTIATE_TEST_SUITE_P(Screens, FrameSize,
                         testing::Values(FrameCase{240, 320, 96, false, 240, 320},
                                         FrameCase{240, 320, 96, true, 320, 240},
                                         FrameCase{320, 240, 96, true, 240, 320},
                                         FrameCase{480, 640, 192, false, 240, 320},
                                         FrameCase{480, 800, 192, true, 400, 240},
                                         // 641 * 96 / 192 = 320.5, 480 * 96 / 131 = 351.7
                                         FrameCase{641, 480, 192, false, 320, 240},
                                         FrameCase{480, 480, 131, false, 351, 351}));

TEST_F(CanvasTest, KeepsItsBuffersFromFrameToFrame) {
  Open(240, 320);
  const int objects = handheld::GdiObjectsAlive();
  theCanvas.FillBackground(RED);
  theCanvas.BeginFrame(window);
  EXPECT_EQ(RED, At(120, 160)) << "the frame before is still there";
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(CanvasTest, KeepsWhatWasPresentedUntilItIsPresentedAnew) {
  Open(240, 320);
  SetPixel(theCanvas.GetPresentDC(), 3, 4, RED);
  theCanvas.BeginFrame(window);
  EXPECT_EQ(RED, GetPixel(theCanvas.GetPresentDC(), 3, 4));
  theCanvas.FlushToWindow();
  EXPECT_EQ(RED, WindowAt(3, 4));
}

TEST_F(CanvasTest, MakesNewBuffersForAnotherSizeAndFreesTheOld) {
  Open(240, 320);
  const int objects = handheld::GdiObjectsAlive();
  theInvertFlags.orient = 1;
  theCanvas.BeginFrame(window);
  EXPECT_EQ(320, theCanvas.GetFrameRect().right);
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
  Open(480, 640);
  EXPECT_EQ(640, theCanvas.GetFrameRect().right);
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(CanvasTest, ReleasesAllThatItMade) {
  const int objects = handheld::GdiObjectsAlive();
  Open(240, 320);
  theCanvas.DrawRectangle(WHITE, 1, RED, {10, 10, 20, 20});
  Present();
  EXPECT_LT(objects, handheld::GdiObjectsAlive());
  theCanvas.ReleaseAll();
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
  EXPECT_EQ(nullptr, theCanvas.GetDrawingDC());
  theCanvas.ReleaseAll();
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(CanvasTest, StartsAfreshAfterRelease) {
  Open(240, 320);
  theCanvas.ReleaseAll();
  theCanvas.BeginFrame(window);
  theCanvas.FillBackground(GREEN);
  EXPECT_EQ(GREEN, At(0, 0));
}

TEST_F(CanvasTest, SurvivesAWindowThatIsGone) {
  Open(240, 320);
  const HWND gone = window;
  DestroyWindow(window);
  window = nullptr;
  theCanvas.BeginFrame(gone);
  theCanvas.FillBackground(RED);
  Present();
  EXPECT_EQ(0, theCanvas.GetFrameRect().right);
}

TEST_F(CanvasTest, FillsTheWholeBackground) {
  Open(240, 320);
  theCanvas.FillBackground(BLUE);
  for (const Point& corner : {Point(0, 0), Point(239, 0), Point(0, 319), Point(239, 319)}) {
    EXPECT_EQ(BLUE, At(corner.first, corner.second));
  }
}

TEST_F(CanvasTest, DrawsAThinLineWithoutItsEnd) {
  Open(240, 320);
  theCanvas.DrawThinLine(RED, 10, 20, 15, 20);
  EXPECT_EQ(5, CountInk());
  EXPECT_EQ(RED, At(10, 20));
  EXPECT_EQ(RED, At(14, 20));
  EXPECT_EQ(BLACK, At(15, 20));
}

TEST_F(CanvasTest, DrawsAWideLineAroundItsPath) {
  Open(240, 320);
  theCanvas.DrawLine(GREEN, 3, 20, 30, 40, 30);
  EXPECT_EQ(GREEN, At(30, 29));
  EXPECT_EQ(GREEN, At(30, 30));
  EXPECT_EQ(GREEN, At(30, 31));
  EXPECT_EQ(BLACK, At(30, 28));
  EXPECT_EQ(BLACK, At(30, 32));
}

TEST_F(CanvasTest, LeavesACallersPenAlive) {
  Open(240, 320);
  const int objects = handheld::GdiObjectsAlive();
  const HPEN pen = CreatePen(PS_SOLID, 1, RED);
  theCanvas.DrawLineWithPen(pen, 0, 0, 10, 0);
  theCanvas.DrawLineWithPen(pen, 0, 5, 10, 5);
  EXPECT_EQ(RED, At(9, 5));
  EXPECT_TRUE(DeleteObject(pen)) << "it is selected nowhere";
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(CanvasTest, DrawsAPolylineThroughItsPoints) {
  Open(240, 320);
  const POINT points[] = {{5, 5}, {10, 5}, {10, 10}};
  theCanvas.DrawPolyline(RED, 1, points, 3);
  EXPECT_EQ(RED, At(5, 5));
  EXPECT_EQ(RED, At(10, 5));
  EXPECT_EQ(RED, At(10, 9));
  EXPECT_EQ(10, CountInk());
}

TEST_F(CanvasTest, DrawsNothingForAPolylineOfOnePoint) {
  Open(240, 320);
  const int objects = handheld::GdiObjectsAlive();
  const POINT point = {5, 5};
  theCanvas.DrawPolyline(RED, 5, &point, 1);
  theCanvas.DrawPolyline(RED, 5, nullptr, 0);
  EXPECT_EQ(0, CountInk());
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

/// Pixels of a circle around (100, 100), as offsets from its centre.
std::set<Point> Circle(const FrameTest&, int radius) {
  theCanvas.DrawCircleOutline(RED, 100, 100, radius);
  std::set<Point> points;
  for (int y = 80; y <= 120; ++y) {
    for (int x = 80; x <= 120; ++x) {
      if (GetPixel(theCanvas.GetDrawingDC(), x, y) == RED) {
        points.insert({x - 100, y - 100});
      }
    }
  }
  return points;
}

TEST_F(CanvasTest, DrawsACircleOfRadiusZeroAsOnePixel) {
  Open(240, 320);
  EXPECT_EQ((std::set<Point>{{0, 0}}), Circle(*this, 0));
}

TEST_F(CanvasTest, DrawsACircleOfRadiusOneAsFourPixels) {
  Open(240, 320);
  // i 0, j 1, e 0: plots (0, +-1). Neither branch holds, so both step: e += 2(1 - 1) = 0, j 0.
  // i 1, j 0, e 0: plots (+-1, 0), and j becomes -1.
  EXPECT_EQ((std::set<Point>{{0, 1}, {0, -1}, {1, 0}, {-1, 0}}), Circle(*this, 1));
}

/// The pixels with their mirror images in both axes.
std::set<Point> Mirrored(std::initializer_list<Point> quarter) {
  std::set<Point> points;
  for (const Point& point : quarter) {
    for (const int x : {point.first, -point.first}) {
      points.insert({x, point.second});
      points.insert({x, -point.second});
    }
  }
  return points;
}

TEST_F(CanvasTest, WalksACircleOfRadiusThree) {
  Open(240, 320);
  // i j  e   plots      because
  // 0 3 -4  (0, 3)   2(-4 + 3) - 1 = -3 < 1: across, e += 3
  // 1 3 -1  (1, 3)   2(-1 + 3) - 1 = 3: both, e += 2(2 - 3)
  // 2 2 -3  (2, 2)   2(-3 + 2) - 1 = -3 < 1: across, e += 7
  // 3 2  4  (3, 2)   2(4 - 3) - 1 = 1: down, t = 2, e += 1 - 2
  // 3 1  3  (3, 1)   2(3 - 3) - 1 = -1: both, e += 2(4 - 1)
  // 4 0  9  (4, 0)   2(9 - 4) - 1 = 9: down, j = -1
  const auto expected = Mirrored({{0, 3}, {1, 3}, {2, 2}, {3, 2}, {3, 1}, {4, 0}});
  EXPECT_EQ(expected, Circle(*this, 3));
}

TEST_F(CanvasTest, WalksACircleOfRadiusTen) {
  Open(240, 320);
  //  i  j   e  plots     because
  //  0 10 -18  (0, 10)   2(-18 + 10) - 1 = -17: across, e += 3
  //  1 10 -15  (1, 10)   2(-15 + 10) - 1 = -11: across, e += 5
  //  2 10 -10  (2, 10)   2(-10 + 10) - 1 = -1: across, e += 7
  //  3 10  -3  (3, 10)   2(-3 + 10) - 1 = 13: both, e += 2(4 - 10)
  //  4  9 -15  (4, 9)    2(-15 + 9) - 1 = -13: across, e += 11
  //  5  9  -4  (5, 9)    2(-4 + 9) - 1 = 9: both, e += 2(6 - 9)
  //  6  8 -10  (6, 8)    2(-10 + 8) - 1 = -5: across, e += 15
  //  7  8   5  (7, 8)    2(5 - 7) - 1 = -5: both, e += 2(8 - 8)
  //  8  7   5  (8, 7)    2(5 - 8) - 1 = -7: both, e += 2(9 - 7)
  //  9  6   9  (9, 6)    2(9 - 9) - 1 = -1: both, e += 2(10 - 6)
  // 10  5  17  (10, 5)   2(17 - 10) - 1 = 13: down, t = 8, e += 1 - 8
  // 10  4  10  (10, 4)   2(10 - 10) - 1 = -1: both, e += 2(11 - 4)
  // 11  3  24  (11, 3)   2(24 - 11) - 1 = 25: down, t = 4, e += 1 - 4
  // 11  2  21  (11, 2)   2(21 - 11) - 1 = 19: down, t = 2, e += 1 - 2
  // 11  1  20  (11, 1)   2(20 - 11) - 1 = 17: down, t = 0, e += 1
  // 11  0  21  (11, 0)   2(21 - 11) - 1 = 19: down, j = -1
  const auto expected =
      Mirrored({Point(0, 10), Point(1, 10), Point(2, 10), Point(3, 10), Point(4, 9), Point(5, 9),
                Point(6, 8), Point(7, 8), Point(8, 7), Point(9, 6), Point(10, 5), Point(10, 4),
                Point(11, 3), Point(11, 2), Point(11, 1), Point(11, 0)});
  EXPECT_EQ(expected, Circle(*this, 10));
}

TEST_F(CanvasTest, DrawsNoCircleForANegativeRadius) {
  Open(240, 320);
  theCanvas.DrawCircleOutline(RED, 100, 100, -1);
  EXPECT_EQ(0, CountInk());
}

TEST_F(CanvasTest, FillsACircleAndFreesItsPenAndBrush) {
  Open(240, 320);
  const int objects = handheld::GdiObjectsAlive();
  theCanvas.DrawFilledCircle(RED, 1, GREEN, 100, 100, 10);
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
  EXPECT_EQ(GREEN, At(100, 100));
  EXPECT_EQ(RED, At(90, 100)) << "the left edge lies on cx - r";
  EXPECT_EQ(RED, At(109, 100)) << "the right edge lies just inside cx + r";
  EXPECT_EQ(BLACK, At(91, 91));
}

TEST_F(CanvasTest, DrawsARectangleWithItsFrame) {
  Open(240, 320);
  theCanvas.DrawRectangle(RED, 1, GREEN, {10, 20, 30, 40});
  EXPECT_EQ(RED, At(10, 20));
  EXPECT_EQ(RED, At(29, 39));
  EXPECT_EQ(GREEN, At(11, 21));
  EXPECT_EQ(GREEN, At(28, 38));
  EXPECT_EQ(BLACK, At(30, 40));
  EXPECT_EQ(20 * 20, CountInk());
}

TEST_F(CanvasTest, RoundsTheCornersOfARectangle) {
  Open(240, 320);
  theCanvas.DrawRoundRect(RED, 1, GREEN, 10, 20, 30, 40);
  // A corner of 3 x 3 lacks just its outermost pixel.
  for (const Point& corner : {Point(10, 20), Point(29, 20), Point(10, 39), Point(29, 39)}) {
    EXPECT_EQ(BLACK, At(corner.first, corner.second));
  }
  EXPECT_EQ(20 * 20 - 4, CountInk());
  EXPECT_EQ(RED, At(20, 20));
  EXPECT_EQ(GREEN, At(11, 21));
  EXPECT_EQ(GREEN, At(20, 30));
  const int ink = CountInk();
  theCanvas.FillBackground(BLACK);
  theCanvas.DrawRoundRectR(RED, 1, GREEN, {10, 20, 30, 40});
  EXPECT_EQ(ink, CountInk());
}

TEST_F(CanvasTest, RectanglesDeleteThePenAndBrushBeforeThemAndKeepTheirOwn) {
  Open(240, 320);
  const HDC dc = theCanvas.GetDrawingDC();
  const HPEN pen = CreatePen(PS_SOLID, 1, BLUE);
  const HBRUSH brush = CreateSolidBrush(BLUE);
  SelectObject(dc, pen);
  SelectObject(dc, brush);
  const int objects = handheld::GdiObjectsAlive();

  theCanvas.DrawRectangle(RED, 1, GREEN, {10, 20, 30, 40});
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
  EXPECT_FALSE(DeleteObject(pen)) << "it is gone already";
  EXPECT_FALSE(DeleteObject(brush));

  Rectangle(dc, 50, 50, 60, 60);
  EXPECT_EQ(RED, At(50, 50)) << "the rectangle's own pen is still selected";
  EXPECT_EQ(GREEN, At(55, 55));
}

TEST_F(CanvasTest, RectanglesKeepTheNumberOfObjectsFlat) {
  Open(240, 320);
  theCanvas.DrawRectangle(RED, 1, GREEN, {0, 0, 5, 5});
  const int objects = handheld::GdiObjectsAlive();
  for (int round = 0; round < 1000; ++round) {
    theCanvas.DrawRectangle(RED, 1, GREEN, {0, 0, 5, 5});
    theCanvas.DrawRoundRect(RED, 1, GREEN, 0, 0, 5, 5);
    theCanvas.DrawRoundRectR(RED, 1, GREEN, {0, 0, 5, 5});
  }
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(CanvasTest, DrawsOnlyInsideItsClipRegion) {
  Open(240, 320);
  const HRGN region = CreateRectRgn(10, 10, 20, 20);
  theCanvas.SetClipRegion(region);
  theCanvas.DrawRectangle(RED, 1, RED, {0, 0, 100, 100});
  EXPECT_EQ(10 * 10, CountInk());
  theCanvas.SetClipRegion(nullptr);
  DeleteObject(region);
  theCanvas.DrawRectangle(RED, 1, RED, {0, 0, 100, 100});
  EXPECT_EQ(100 * 100, CountInk());
}

}  // namespace

}  // namespace ferolin
