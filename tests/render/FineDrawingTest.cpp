// Drawing in the screen's own pixels: what holds of every shape, without comparing pictures.
#include <gtest/gtest.h>
#include <handheld.h>
#include <objbase.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <functional>
#include <vector>

#include "FrameTest.h"
#include "render/DashedPen.h"
#include "render/FrameBitmap.h"
#include "render/InvertFlags.h"
#include "render/Picture.h"
#include "render/Selection.h"
#include "render/Surface.h"
#include "support/TempFolder.h"

namespace ferolin {

namespace {

/// What the window showed at one moment.
class Shown {
 public:
  explicit Shown(HWND window) : pixels(handheld::WindowPixels(window)) {}
  bool operator==(const Shown& other) const { return pixels.rows == other.pixels.rows; }

  COLORREF At(int x, int y) const {
    const std::uint32_t pixel = ValueAt(x, y);
    return RGB(static_cast<BYTE>(pixel >> 16), static_cast<BYTE>(pixel >> 8),
               static_cast<BYTE>(pixel));
  }

  std::ptrdiff_t Count(COLORREF color) const {
    const std::uint32_t pixel = GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color);
    return std::count(pixels.rows.begin(), pixels.rows.end(), pixel);
  }

  /// True when some pixels are neither black nor of that colour.
  bool HasShadesOf(COLORREF color) const {
    return Count(BLACK) + Count(color) < static_cast<std::ptrdiff_t>(pixels.rows.size());
  }

  /// True when every `size` x `size` pixels have one colour, as those of an enlarged frame.
  bool IsEnlarged(int size) const {
    for (int y = 0; y < pixels.height; ++y) {
      for (int x = 0; x < pixels.width; ++x) {
        if (ValueAt(x, y) != ValueAt(x / size * size, y / size * size)) {
          return false;
        }
      }
    }
    return true;
  }

  /// The smallest rectangle around the pixels that are not black: left, top, right, bottom.
  std::array<LONG, 4> Ink() const {
    std::array<LONG, 4> ink = {pixels.width, pixels.height, 0, 0};
    for (LONG y = 0; y < pixels.height; ++y) {
      for (LONG x = 0; x < pixels.width; ++x) {
        if (ValueAt(x, y) != 0) {
          ink = {std::min(ink[0], x), std::min(ink[1], y), std::max(ink[2], x + 1),
                 std::max(ink[3], y + 1)};
        }
      }
    }
    return ink;
  }

 private:
  std::uint32_t ValueAt(int x, int y) const {
    return pixels.rows[static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.width) +
                       static_cast<std::size_t>(x)];
  }

  handheld::Pixels pixels;
};

using Ink = std::array<LONG, 4>;

/// A frame of 240 x 320 logical pixels, at first on a screen of twice as many.
class FineDrawing : public FrameTest {
 protected:
  FineDrawing() {
    handheld::SetFineDrawing(true);
    OpenScaled(2);
  }
  ~FineDrawing() override {
    handheld::SetFineDrawing(false);
    handheld::SetScreen(240, 320, 96);
  }

  void OpenScaled(int scale) { Open(240 * scale, 320 * scale, 96 * scale); }

  Shown Present() {
    FrameTest::Present();
    return Shown(window);
  }

  static void Fill(const RECT& rect, COLORREF color) {
    const Brush brush(CreateSolidBrush(color));
    FillRect(theCanvas.GetDrawingDC(), &rect, brush.get());
  }

  static void DrawSlanted(HDC dc = theCanvas.GetDrawingDC()) {
    const Pen pen(CreatePen(PS_SOLID, 6, RED));
    const Selection selection(dc, pen.get());
    MoveToEx(dc, 20, 30, nullptr);
    LineTo(dc, 200, 90);
  }
};

TEST_F(FineDrawing, SmoothsSlantedLines) {
  DrawSlanted();
  const Shown shown = Present();
  EXPECT_FALSE(shown.IsEnlarged(2));
  EXPECT_TRUE(shown.HasShadesOf(RED));
}

TEST_F(FineDrawing, IsOffWhenNobodyWantsIt) {
  handheld::SetFineDrawing(false);
  DrawSlanted();
  EXPECT_TRUE(Present().IsEnlarged(2));
}

TEST_F(FineDrawing, BeginsAtOneAndAHalfTimesTheLogicalResolution) {
  Open(360, 480, 143);
  DrawSlanted();
  EXPECT_FALSE(Present().HasShadesOf(RED));
  Open(360, 480, 144);
  DrawSlanted();
  EXPECT_TRUE(Present().HasShadesOf(RED));
}

TEST_F(FineDrawing, LeavesTheBitmapAsItIs) {
  const auto drawn = [&] {
    theCanvas.FillBackground(BLACK);
    DrawSlanted();
    std::vector<COLORREF> pixels;
    for (int y = 0; y < 320; ++y) {
      for (int x = 0; x < 240; ++x) {
        pixels.push_back(At(x, y));
      }
    }
    return pixels;
  };
  const std::vector<COLORREF> fine = drawn();
  handheld::SetFineDrawing(false);
  EXPECT_EQ(drawn(), fine);
}

TEST_F(FineDrawing, FillsWholePixels) {
  // 1.5 and 4.5 pixels from the edge are rounded up.
  Open(360, 480, 144);
  Fill({1, 3, 11, 5}, RED);
  const Shown shown = Present();
  EXPECT_EQ((Ink{2, 5, 17, 8}), shown.Ink());
  EXPECT_EQ(15 * 3, shown.Count(RED));
}

TEST_F(FineDrawing, ThinLevelAndUprightLinesLeaveOutTheirEnd) {
  theCanvas.DrawThinLine(RED, 10, 20, 30, 20);
  EXPECT_EQ((Ink{20, 40, 60, 42}), Present().Ink());
  theCanvas.FillBackground(BLACK);
  theCanvas.DrawThinLine(RED, 10, 30, 10, 20);
  EXPECT_EQ((Ink{20, 42, 22, 62}), Present().Ink());
}

/// A pen of 2 pixels at row 20 covers rows 19 and 20; one of 3 covers 19, 20 and 21.
TEST_F(FineDrawing, WidePensCoverTheRowsOfTheBitmap) {
  theCanvas.DrawLine(RED, 2, 10, 20, 50, 20);
  EXPECT_EQ((Ink{18, 38, 102, 42}), Present().Ink());
  theCanvas.FillBackground(BLACK);
  theCanvas.DrawLine(RED, 3, 10, 20, 50, 20);
  EXPECT_EQ((Ink{18, 38, 104, 44}), Present().Ink());
}

TEST_F(FineDrawing, DashesHave18PixelsAndGaps6) {
  DashedPen(RED).DrawLine(theCanvas, 10, 20, 60, 20);
  const Shown shown = Present();
  for (int x = 0; x < 60; ++x) {
    EXPECT_EQ(x < 50 && x % 24 < 18 ? RED : BLACK, shown.At(2 * (10 + x), 40)) << x;
  }
}

/// Where lines go around a corner, dashes do, too: 15 pixels of the first dash lie on the level
/// side, 3 on the upright one.
TEST_F(FineDrawing, DashesGoOnAroundCorners) {
  const Pen pen(CreatePen(PS_DASH, 1, RED));
  const Selection selection(theCanvas.GetDrawingDC(), pen.get());
  SetBkMode(theCanvas.GetDrawingDC(), TRANSPARENT);
  const std::array<POINT, 3> points = {POINT{10, 20}, POINT{25, 20}, POINT{25, 60}};
  Polyline(theCanvas.GetDrawingDC(), points.data(), 3);
  const Shown shown = Present();
  for (int y = 0; y < 40; ++y) {
    EXPECT_EQ((15 + y) % 24 < 18 ? RED : BLACK, shown.At(50, 2 * (20 + y))) << y;
  }
}

/// Dashes are counted along the longer axis.
TEST_F(FineDrawing, SlantedLinesHaveDashes) {
  DashedPen(RED).DrawLine(theCanvas, 10, 20, 130, 50);
  const Shown shown = Present();
  const auto at = [&](int step) { return shown.At(2 * (10 + step), 2 * (20 + step / 4)); };
  EXPECT_NE(BLACK, at(0));
  EXPECT_NE(BLACK, at(16));
  EXPECT_EQ(BLACK, at(20));
  EXPECT_NE(BLACK, at(24));
  EXPECT_EQ(BLACK, at(44));
  EXPECT_NE(BLACK, at(112));
  EXPECT_EQ(BLACK, at(116));
}

TEST_F(FineDrawing, CirclesFillTheBoxOfTheBitmapsCircle) {
  theCanvas.DrawFilledCircle(RED, 1, GREEN, 50, 60, 20);
  const Shown shown = Present();
  EXPECT_EQ((Ink{60, 80, 140, 160}), shown.Ink());
  EXPECT_EQ(GREEN, shown.At(100, 120));
  EXPECT_EQ(BLACK, shown.At(65, 85));
}

/// 2^24 pixels of the screen beside the frame, where cairo's coordinates begin anew.
TEST_F(FineDrawing, CirclesFarAwayAreNotSeen) {
  theCanvas.DrawFilledCircle(RED, 1, GREEN, 8'388'608 + 50, 60, 20);
  EXPECT_TRUE(Present().Count(BLACK) == std::ptrdiff_t{480} * 640);
}

TEST_F(FineDrawing, RectanglesHaveSharpOutlinesAndCorners) {
  theCanvas.DrawRectangle(RED, 1, GREEN, {10, 20, 30, 40});
  const Shown shown = Present();
  EXPECT_EQ((Ink{20, 40, 60, 80}), shown.Ink());
  EXPECT_EQ(36 * 36, shown.Count(GREEN));
  EXPECT_EQ(40 * 40 - 36 * 36, shown.Count(RED));
}

TEST_F(FineDrawing, OutlinesKeepWhatTheySurround) {
  Fill({0, 0, 240, 320}, BLUE);
  theCanvas.DrawOutline(RED, {10, 20, 30, 40});
  const Shown shown = Present();
  EXPECT_EQ(40 * 40 - 36 * 36, shown.Count(RED));
  EXPECT_EQ(BLUE, shown.At(22, 42));
}

TEST_F(FineDrawing, SinglePixelsAreRoundDots) {
  OpenScaled(4);
  SetPixel(theCanvas.GetDrawingDC(), 10, 20, RED);
  const Shown shown = Present();
  EXPECT_EQ(RED, shown.At(41, 82));
  EXPECT_EQ(RED, shown.At(42, 81));
  EXPECT_NE(RED, shown.At(40, 80));
  EXPECT_NE(RED, shown.At(43, 83));
  EXPECT_EQ((Ink{39, 79, 45, 85}), shown.Ink());
}

/// All around, the ring has the same width at the same distance.
TEST_F(FineDrawing, CirclesOfPixelsAreSmooth) {
  OpenScaled(4);
  theCanvas.DrawCircleOutline(RED, 60, 70, 40);
  const Shown shown = Present();
  for (int degrees = 0; degrees < 360; degrees += 5) {
    const double angle = degrees * 3.14159265 / 180;
    const auto at = [&](double radius) {
      return shown.At(static_cast<int>(4 * (60.5 + radius * std::cos(angle))),
                      static_cast<int>(4 * (70.5 + radius * std::sin(angle))));
    };
    EXPECT_EQ(RED, at(40)) << degrees;
    EXPECT_EQ(BLACK, at(39)) << degrees;
    EXPECT_EQ(BLACK, at(41)) << degrees;
  }
  EXPECT_TRUE(shown.HasShadesOf(RED));
}

TEST_F(FineDrawing, CirclesOfPixelsAreDrawnAgain) {
  theCanvas.DrawCircleOutline(RED, 60, 70, 40);
  const Shown first = Present();
  theCanvas.FillBackground(BLACK);
  theCanvas.DrawCircleOutline(RED, 60, 70, 40);
  EXPECT_TRUE(first == Present());
  theCanvas.DrawFilledCircle(BLACK, 1, BLACK, 60, 70, 50);
  theCanvas.DrawCircleOutline(RED, 60, 70, 40);
  EXPECT_TRUE(first == Present());
}

/// Four single pixels begin as a circle does; what follows elsewhere is a dot again.
TEST_F(FineDrawing, PixelsBesideACircleAreDots) {
  theCanvas.DrawCircleOutline(RED, 60, 70, 40);
  SetPixel(theCanvas.GetDrawingDC(), 60, 70, RED);
  theCanvas.DrawCircleOutline(RED, 60, 70, 20);
  SetPixel(theCanvas.GetDrawingDC(), 60, 90, GREEN);
  const Shown shown = Present();
  EXPECT_NE(BLACK, shown.At(120, 140));
  EXPECT_NE(RED, shown.At(120, 180));
}

/// Steps of a pixel are the bitmap's rounding, not the line's.
TEST_F(FineDrawing, LinesOfSmallStepsAreStraight) {
  OpenScaled(4);
  std::array<POINT, 40> steps = {};
  for (int step = 0; step < 40; ++step) {
    steps.at(static_cast<std::size_t>(step)) = {10 + step, 20 + (step + 2) / 4};
  }
  theCanvas.DrawPolyline(RED, 1, steps.data(), static_cast<int>(steps.size()));
  const Shown shown = Present();
  // A quarter of a pixel down with each step, also where the steps are level, as from 24 to 27.
  const auto topOf = [&](int x) {
    int y = 80;
    while (shown.At(x, y) != RED) {
      ++y;
    }
    return y;
  };
  EXPECT_NEAR(topOf(4 * 14) + 16, topOf(4 * 30), 2);
  EXPECT_NEAR(topOf(4 * 25) + 2, topOf(4 * 27), 1);
}

/// What a simplified line leaves out must not be a corner.
TEST_F(FineDrawing, LinesKeepTheirCorners) {
  const POINT points[] = {{20, 100}, {60, 20}, {100, 100}, {60, 100}};
  theCanvas.DrawPolyline(RED, 1, points, 4);
  const Shown shown = Present();
  EXPECT_NE(BLACK, shown.At(121, 41));
  EXPECT_NE(BLACK, shown.At(201, 201));
  EXPECT_EQ(RED, shown.At(140, 201));
}

TEST_F(FineDrawing, LinesReachWhereTheyTurnBack) {
  const POINT points[] = {{20, 100}, {100, 100}, {60, 100}, {60, 50}};
  theCanvas.DrawPolyline(RED, 1, points, 4);
  EXPECT_EQ((Ink{40, 100, 202, 202}), Present().Ink());
}

TEST_F(FineDrawing, LinesFromFarAwayComeFromThere) {
  const POINT points[] = {{-30'000'000, 100}, {60, 100}, {60, 40'000'000}};
  theCanvas.DrawPolyline(RED, 1, points, 3);
  const Shown shown = Present();
  EXPECT_EQ(RED, shown.At(0, 200));
  EXPECT_EQ(RED, shown.At(100, 201));
  EXPECT_EQ(RED, shown.At(120, 639));
  EXPECT_EQ(BLACK, shown.At(124, 200));
}

/// The corner lies beyond the right edge; the line comes back at (240, 133) and passes (204, 183).
TEST_F(FineDrawing, LinesComeBackWhereTheyDo) {
  const POINT points[] = {{100, 50}, {300, 50}, {120, 300}};
  theCanvas.DrawPolyline(RED, 3, points, 3);
  const Shown shown = Present();
  EXPECT_EQ(RED, shown.At(478, 101));
  EXPECT_EQ(RED, shown.At(409, 367));
  EXPECT_EQ(BLACK, shown.At(409, 300));
  EXPECT_EQ(BLACK, shown.At(470, 220));
}

TEST_F(FineDrawing, StaysInsideTheClip) {
  const Region region(CreateRectRgn(20, 20, 40, 40));
  theCanvas.SetClipRegion(region.get());
  Fill({0, 0, 100, 100}, RED);
  EXPECT_EQ((Ink{40, 40, 80, 80}), Present().Ink());
  theCanvas.DrawFilledCircle(GREEN, 3, GREEN, 30, 30, 40);
  theCanvas.DrawCircleOutline(BLUE, 20, 20, 15);
  // The rim of its dot would reach into the clip.
  SetPixel(theCanvas.GetDrawingDC(), 19, 25, WHITE);
  theCanvas.SetClipRegion(nullptr);
  const Shown shown = Present();
  EXPECT_EQ((Ink{40, 40, 80, 80}), shown.Ink());
  EXPECT_EQ(GREEN, shown.At(40, 51));
  EXPECT_EQ(BLUE, shown.At(70, 41));
}

/// The measured letters are hinted, so their widths are whole pixels; those drawn are not.
TEST_F(FineDrawing, TextFillsItsBox) {
  const auto* text = TEXT("nnnnnnnnnnnnnnnnnnnn");
  for (int height = 10; height < 20; ++height) {
    const Font font = theCanvas.MakeFont(TEXT("Times New Roman"), height, 0);
    const SIZE size = theCanvas.MeasureText(font.get(), text);
    theCanvas.FillBackground(BLACK);
    theCanvas.DrawText(font.get(), text, 30, 40, WHITE);
    const auto [left, top, right, bottom] = Present().Ink();
    EXPECT_GE(top, 2 * 40) << height;
    EXPECT_LE(bottom, 2 * (40 + size.cy)) << height;
    // The letter leaves less than a tenth of its height free at its sides.
    const double free = 2 * height / 10.0;
    EXPECT_NEAR(left, 2 * 30 + free / 2, 1 + free / 2) << height;
    EXPECT_NEAR(right, 2 * (30 + size.cx) - free / 2, 1 + free / 2) << height;
  }
}

TEST_F(FineDrawing, TextIsSmooth) {
  const Font font = theCanvas.MakeFont(TEXT("Times New Roman"), 13, 0);
  theCanvas.DrawText(font.get(), TEXT("Speed"), 30, 40, WHITE);
  const Shown shown = Present();
  EXPECT_FALSE(shown.IsEnlarged(2));
  EXPECT_TRUE(shown.HasShadesOf(WHITE));
}

TEST_F(FineDrawing, TextIsTurned) {
  const Font font = theCanvas.MakeFont(TEXT("Times New Roman"), 40, 90);
  theCanvas.DrawText(font.get(), TEXT("l"), 100, 200, WHITE);
  const auto [left, top, right, bottom] = Present().Ink();
  EXPECT_GT(right - left, 2 * (bottom - top));
}

TEST_F(FineDrawing, FlagsMovePixelsWithoutChangingThem) {
  constexpr int SIDE = 480;
  Open(SIDE, SIDE, 192);
  DrawSlanted();
  const Shown upright = Present();
  const auto expectMoved = [&](const std::function<COLORREF(int x, int y)>& expected) {
    const Shown shown = Present();
    for (int y = 0; y < SIDE; ++y) {
      for (int x = 0; x < SIDE; ++x) {
        ASSERT_EQ(expected(x, y), shown.At(x, y)) << x << ", " << y;
      }
    }
  };
  theInvertFlags.horz = 1;
  expectMoved([&](int x, int y) { return upright.At(SIDE - 1 - x, y); });
  theInvertFlags.vert = 1;
  expectMoved([&](int x, int y) { return upright.At(SIDE - 1 - x, SIDE - 1 - y); });
  theInvertFlags.color = 1;
  expectMoved([&](int x, int y) { return upright.At(SIDE - 1 - x, SIDE - 1 - y) ^ 0xFFFFFF; });
  theInvertFlags.horz = 0;
  theInvertFlags.vert = 0;
  theInvertFlags.color = 0;
  // Clockwise, the left column becomes the top row, from the right.
  theInvertFlags.orient = 1;
  expectMoved([&](int x, int y) { return upright.At(y, SIDE - 1 - x); });
  theInvertFlags.horz = 1;
  expectMoved([&](int x, int y) { return upright.At(y, x); });
}

/// 1280 pixels of 288 dpi are 426 logical ones and two thirds.
TEST_F(FineDrawing, PixelsBeyondTheLastLogicalOneBelongToIt) {
  Open(1280, 720, 288);
  ASSERT_EQ(426, theCanvas.GetFrameRect().right);
  Fill({425, 0, 426, 240}, RED);
  Fill({100, 0, 101, 240}, GREEN);
  const Shown shown = Present();
  EXPECT_EQ(BLACK, shown.At(1274, 100));
  EXPECT_EQ(RED, shown.At(1275, 100));
  EXPECT_EQ(RED, shown.At(1279, 100));
  EXPECT_EQ(BLACK, shown.At(299, 100));
  EXPECT_EQ(GREEN, shown.At(300, 100));
  EXPECT_EQ(GREEN, shown.At(302, 100));
  EXPECT_EQ(BLACK, shown.At(303, 100));
}

TEST_F(FineDrawing, FollowsTheScreensResolution) {
  theCanvas.DrawThinLine(RED, 10, 20, 30, 20);
  EXPECT_EQ((Ink{20, 40, 60, 42}), Present().Ink());
  OpenScaled(4);
  theCanvas.DrawThinLine(RED, 10, 20, 30, 20);
  EXPECT_EQ((Ink{40, 80, 120, 84}), Present().Ink());
  OpenScaled(1);
  theCanvas.DrawThinLine(RED, 10, 20, 30, 20);
  EXPECT_EQ((Ink{10, 20, 30, 21}), Present().Ink());
}

/// A bitmap of the frame's kind that is not the canvas's.
class OwnFrame {
 public:
  OwnFrame(LONG width, LONG height) {
    surface.EnsureDC(nullptr);
    surface.SetBitmap(CreateFrameBitmap(nullptr, width, height, &bits));
  }
  ~OwnFrame() { surface.Release(); }
  OwnFrame(const OwnFrame&) = delete;
  OwnFrame& operator=(const OwnFrame&) = delete;

  HDC GetDC() const { return surface.GetDC(); }
  std::uint16_t* GetBits() const { return static_cast<std::uint16_t*>(bits); }

 private:
  Surface surface;
  void* bits = nullptr;
};

TEST_F(FineDrawing, KeptPicturesStayFine) {
  const OwnFrame kept(240, 320);
  DrawSlanted(kept.GetDC());
  for (const int scale : {2, 4}) {
    OpenScaled(scale);
    DrawSlanted();
    const Shown direct = Present();
    theCanvas.FillBackground(BLACK);
    BitBlt(theCanvas.GetDrawingDC(), 0, 0, 240, 320, kept.GetDC(), 0, 0, SRCCOPY);
    const Shown copied = Present();
    EXPECT_FALSE(copied.IsEnlarged(scale)) << scale;
    if (scale == 2) {
      EXPECT_TRUE(direct == copied);
    } else {
      // The picture of the former resolution, enlarged.
      EXPECT_EQ(RED, copied.At(4 * 110, 4 * 60));
      EXPECT_NEAR(direct.Ink()[2], copied.Ink()[2], 2);
    }
  }
}

/// At one and a half times, 201 pixels from 0 on are 302 of the screen's, and 301 from 1 on.
TEST_F(FineDrawing, CopiesOfTheSameSizeAreNotScaled) {
  Open(360, 480, 144);
  const OwnFrame kept(240, 320);
  DrawSlanted(kept.GetDC());
  BitBlt(theCanvas.GetDrawingDC(), 0, 0, 240, 320, kept.GetDC(), 0, 0, SRCCOPY);
  const Shown direct = Present();
  theCanvas.FillBackground(BLACK);
  BitBlt(theCanvas.GetDrawingDC(), 1, 0, 201, 201, kept.GetDC(), 0, 0, SRCCOPY);
  const Shown moved = Present();
  for (int y = 0; y < 300; ++y) {
    for (int x = 0; x < 300; ++x) {
      ASSERT_EQ(direct.At(x, y), moved.At(2 + x, y)) << x << ", " << y;
    }
  }
}

TEST_F(FineDrawing, CopiesAreMirroredAndInverted) {
  const OwnFrame kept(240, 320);
  DrawSlanted(kept.GetDC());
  const HDC dc = theCanvas.GetDrawingDC();
  BitBlt(dc, 0, 0, 240, 320, kept.GetDC(), 0, 0, SRCCOPY);
  const Shown copied = Present();
  StretchBlt(dc, 239, 0, -240, 320, kept.GetDC(), 0, 0, 240, 320, NOTSRCCOPY);
  const Shown mirrored = Present();
  for (int y = 0; y < 640; y += 3) {
    for (int x = 0; x < 480; ++x) {
      ASSERT_EQ(copied.At(479 - x, y) ^ 0xFFFFFF, mirrored.At(x, y)) << x << ", " << y;
    }
  }
}

TEST_F(FineDrawing, BitsWrittenByHandAreEnlarged) {
  const OwnFrame own(240, 320);
  own.GetBits()[5] = 0x7C00;
  StretchBlt(theCanvas.GetPresentDC(), 0, 0, 480, 640, own.GetDC(), 0, 0, 240, 320, SRCCOPY);
  theCanvas.FlushToWindow();
  const Shown direct(window);
  EXPECT_EQ((Ink{10, 638, 12, 640}), direct.Ink());
  EXPECT_TRUE(direct.IsEnlarged(2));
  BitBlt(theCanvas.GetDrawingDC(), 0, 0, 240, 320, own.GetDC(), 0, 0, SRCCOPY);
  EXPECT_TRUE(direct == Present());
}

TEST_F(FineDrawing, BitsWrittenByHandStayUnderWhatIsDrawn) {
  const OwnFrame own(240, 320);
  own.GetBits()[5] = 0x7C00;
  const Selection selection(own.GetDC(), GetStockObject(WHITE_PEN));
  MoveToEx(own.GetDC(), 100, 200, nullptr);
  LineTo(own.GetDC(), 110, 200);
  BitBlt(theCanvas.GetDrawingDC(), 0, 0, 240, 320, own.GetDC(), 0, 0, SRCCOPY);
  const Shown shown = Present();
  EXPECT_EQ(RED, shown.At(11, 639));
  EXPECT_EQ(WHITE, shown.At(210, 401));
}

/// The frame in another size is that of the bitmap.
TEST_F(FineDrawing, SmallerCopiesInTheWindowAreCoarse) {
  DrawSlanted();
  StretchBlt(theCanvas.GetPresentDC(), 0, 0, 240, 320, theCanvas.GetDrawingDC(), 0, 0, 240, 320,
             SRCCOPY);
  theCanvas.FlushToWindow();
  const Shown shown(window);
  EXPECT_FALSE(shown.HasShadesOf(RED));
  EXPECT_LE(shown.Ink()[2], 204);
}

/// Only a copy that was turned, and nothing else, is known for what it is.
TEST_F(FineDrawing, TurnedCopiesThatWereChangedAreEnlarged) {
  constexpr int SIDE = 240;
  Open(2 * SIDE, 2 * SIDE, 192);
  DrawSlanted();
  const HDC dc = theCanvas.GetDrawingDC();
  void* bits = nullptr;
  const Bitmap turned(CreateFrameBitmap(dc, SIDE, SIDE, &bits));
  auto* pixels = static_cast<std::uint16_t*>(bits);
  // Clockwise: the column x becomes the row x, counted from the top; rows of bits run upwards.
  for (int y = 0; y < SIDE; ++y) {
    for (int x = 0; x < SIDE; ++x) {
      pixels[(SIDE - 1 - x) * SIDE + SIDE - 1 - y] = At(x, y) == RED ? 0x7C00 : 0;
    }
  }
  const auto show = [&] {
    const Selection selection(dc, turned.get());
    StretchBlt(theCanvas.GetPresentDC(), 0, 0, 2 * SIDE, 2 * SIDE, dc, 0, 0, SIDE, SIDE, SRCCOPY);
    theCanvas.FlushToWindow();
    return Shown(window);
  };
  EXPECT_FALSE(show().IsEnlarged(2));
  pixels[0] ^= 1;
  EXPECT_TRUE(show().IsEnlarged(2));
}

class FinePicture : public FineDrawing {
 protected:
  FinePicture() {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    std::filesystem::create_directory(folder.Path("4x"));
    Write("picture.png", 2, 2, 0xFF0000FF);
  }
  ~FinePicture() override { CoUninitialize(); }

  /// A picture of one colour, 0xAABBGGRR, apart from the first pixel.
  void Write(const std::string& name, unsigned width, unsigned height, std::uint32_t color,
             std::uint32_t first) const {
    std::vector<std::uint32_t> pixels(std::size_t{width} * height, color);
    pixels.front() = first;
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_RGBA;
    png_image_write_to_file(&image, folder.Path(name).c_str(), 0, pixels.data(), 0, nullptr);
  }

  void Draw(HDC dc, BYTE alpha = OPAQUE_ALPHA) const {
    Picture picture;
    EXPECT_TRUE(picture.Load(folder.DevicePath("picture.png")));
    picture.DrawBlended(dc, {10, 10, 20, 20}, alpha);
  }

  void Write(const std::string& name, unsigned width, unsigned height, std::uint32_t color) const {
    Write(name, width, height, color, color);
  }

  /// Colour of the picture, drawn into the frame.
  COLORREF DrawnIntoFrame(BYTE alpha = OPAQUE_ALPHA) {
    Draw(theCanvas.GetDrawingDC(), alpha);
    return Present().At(30, 30);
  }

  testing_support::TempFolder folder;
};

constexpr COLORREF LOADED_RED = RGB(254, 0, 0);

TEST_F(FinePicture, IsTheLargerVersionBesideIt) {
  Write("4x/picture.png", 8, 8, 0xFF00FF00);
  EXPECT_EQ(GREEN, DrawnIntoFrame());
}

TEST_F(FinePicture, IsBlendedWithItsAlphaAndThatOfTheCall) {
  Write("4x/picture.png", 8, 8, 0x8000FF00);
  theCanvas.FillBackground(BLUE);
  EXPECT_EQ(RGB(0, 128, 127), DrawnIntoFrame());
  theCanvas.FillBackground(BLUE);
  EXPECT_EQ(RGB(0, 26, 229), DrawnIntoFrame(51));
}

TEST_F(FinePicture, IsEnlargedWithoutALargerVersion) {
  EXPECT_EQ(LOADED_RED, DrawnIntoFrame());
}

TEST_F(FinePicture, IsEnlargedSmoothlyUpToItsEdges) {
  Write("picture.png", 2, 2, 0xFF0000FF, 0xFF000000);
  Draw(theCanvas.GetDrawingDC());
  const Shown shown = Present();
  EXPECT_TRUE(shown.HasShadesOf(LOADED_RED));
  EXPECT_EQ(LOADED_RED, shown.At(39, 39));
}

TEST_F(FinePicture, IsNotASmallerVersion) {
  Write("4x/picture.png", 1, 1, 0xFF00FF00);
  EXPECT_EQ(LOADED_RED, DrawnIntoFrame());
}

TEST_F(FinePicture, IsNotALargerVersionOfAnotherShape) {
  Write("4x/picture.png", 8, 6, 0xFF00FF00);
  EXPECT_EQ(LOADED_RED, DrawnIntoFrame());
}

/// Buttons are drawn over the presented frame.
TEST_F(FinePicture, IsLargerOverThePresentedFrame) {
  Write("4x/picture.png", 8, 8, 0x8000FF00);
  const HDC dc = theCanvas.GetPresentDC();
  Draw(dc);
  EXPECT_EQ(RGB(0, 128, 0), GetPixel(dc, 15, 15));
  EXPECT_EQ(BLACK, GetPixel(dc, 20, 15));
  handheld::SetFineDrawing(false);
  Draw(dc);
  EXPECT_EQ(LOADED_RED, GetPixel(dc, 15, 15));
}

}  // namespace

}  // namespace ferolin
