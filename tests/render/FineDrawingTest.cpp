// Drawing in the screen's own pixels: what holds of every shape, without comparing pictures.
#include <gtest/gtest.h>
#include <handheld.h>
#include <objbase.h>
#include <png.h>

#include <algorithm>
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

class FineDrawing : public FrameTest {
 protected:
  FineDrawing() { handheld::SetFineDrawing(true); }
  ~FineDrawing() override {
    handheld::SetFineDrawing(false);
    handheld::SetScreen(240, 320, 96);
  }

  static void Fill(const RECT& rect, COLORREF color) {
    const Brush brush(CreateSolidBrush(color));
    FillRect(theCanvas.GetDrawingDC(), &rect, brush.get());
  }

  static void DrawSlanted() { theCanvas.DrawLine(RED, 6, 20, 30, 200, 90); }

  std::vector<std::uint32_t> PresentedRows() {
    Present();
    return handheld::WindowPixels(window).rows;
  }

  /// True when every `size` x `size` pixels have one colour, as those of an enlarged frame.
  bool IsEnlarged(int size) {
    const handheld::Pixels pixels = handheld::WindowPixels(window);
    for (int y = 0; y < pixels.height; ++y) {
      for (int x = 0; x < pixels.width; ++x) {
        if (WindowPixel(pixels, x, y) != WindowPixel(pixels, x / size * size, y / size * size)) {
          return false;
        }
      }
    }
    return true;
  }

  static std::uint32_t WindowPixel(const handheld::Pixels& pixels, int x, int y) {
    return pixels.rows[static_cast<std::size_t>(y * pixels.width + x)];
  }

  /// The smallest rectangle around the window's pixels that are not black.
  RECT WindowInk() const {
    const handheld::Pixels pixels = handheld::WindowPixels(window);
    RECT ink = {pixels.width, pixels.height, 0, 0};
    for (LONG y = 0; y < pixels.height; ++y) {
      for (LONG x = 0; x < pixels.width; ++x) {
        if (WindowPixel(pixels, x, y) != 0) {
          ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                 std::max(ink.bottom, y + 1)};
        }
      }
    }
    return ink;
  }

  void ExpectInk(const RECT& expected) {
    const RECT ink = WindowInk();
    EXPECT_EQ(expected.left, ink.left);
    EXPECT_EQ(expected.top, ink.top);
    EXPECT_EQ(expected.right, ink.right);
    EXPECT_EQ(expected.bottom, ink.bottom);
  }
};

TEST_F(FineDrawing, SmoothsSlantedLines) {
  Open(480, 640, 192);
  DrawSlanted();
  Present();
  EXPECT_FALSE(IsEnlarged(2));
  const handheld::Pixels pixels = handheld::WindowPixels(window);
  EXPECT_TRUE(std::any_of(pixels.rows.begin(), pixels.rows.end(), [](std::uint32_t pixel) {
    return pixel > 0x400000 && pixel < 0xC00000;
  }));
}

TEST_F(FineDrawing, IsOffWhenNobodyWantsIt) {
  handheld::SetFineDrawing(false);
  Open(480, 640, 192);
  DrawSlanted();
  Present();
  EXPECT_TRUE(IsEnlarged(2));
}

TEST_F(FineDrawing, BeginsAtOneAndAHalfTimesTheLogicalResolution) {
  Open(360, 480, 143);
  DrawSlanted();
  Present();
  const auto isPure = [](std::uint32_t pixel) { return pixel == 0 || pixel == 0xFF0000; };
  const handheld::Pixels coarse = handheld::WindowPixels(window);
  EXPECT_TRUE(std::all_of(coarse.rows.begin(), coarse.rows.end(), isPure));
  Open(360, 480, 144);
  DrawSlanted();
  Present();
  const handheld::Pixels fine = handheld::WindowPixels(window);
  EXPECT_FALSE(std::all_of(fine.rows.begin(), fine.rows.end(), isPure));
}

TEST_F(FineDrawing, LeavesTheBitmapAsItIs) {
  Open(480, 640, 192);
  DrawSlanted();
  const RECT frame = theCanvas.GetFrameRect();
  for (int y = 0; y < frame.bottom; ++y) {
    for (int x = 0; x < frame.right; ++x) {
      ASSERT_TRUE(At(x, y) == BLACK || At(x, y) == RED);
    }
  }
}

TEST_F(FineDrawing, FillsWholePixels) {
  // 1.5 and 4.5 pixels from the edge are rounded up.
  Open(360, 480, 144);
  Fill({1, 3, 11, 5}, RED);
  Present();
  ExpectInk({2, 5, 17, 8});
  const handheld::Pixels pixels = handheld::WindowPixels(window);
  EXPECT_EQ(15 * 3, std::count(pixels.rows.begin(), pixels.rows.end(), 0xFF0000U));
}

TEST_F(FineDrawing, ThinLevelAndUprightLinesLeaveOutTheirEnd) {
  Open(480, 640, 192);
  theCanvas.DrawThinLine(RED, 10, 20, 30, 20);
  Present();
  ExpectInk({20, 40, 60, 42});
  theCanvas.FillBackground(BLACK);
  theCanvas.DrawThinLine(RED, 10, 30, 10, 20);
  Present();
  ExpectInk({20, 42, 22, 62});
}

/// A pen of 2 pixels at row 20 covers rows 19 and 20; one of 3 covers 19, 20 and 21.
TEST_F(FineDrawing, WidePensCoverTheRowsOfTheBitmap) {
  Open(480, 640, 192);
  theCanvas.DrawLine(RED, 2, 10, 20, 50, 20);
  Present();
  ExpectInk({18, 38, 102, 42});
  theCanvas.FillBackground(BLACK);
  theCanvas.DrawLine(RED, 3, 10, 20, 50, 20);
  Present();
  ExpectInk({18, 38, 104, 44});
}

TEST_F(FineDrawing, DashesHave18PixelsAndGaps6) {
  Open(480, 640, 192);
  DashedPen(RED).DrawLine(theCanvas, 10, 20, 60, 20);
  Present();
  const auto isDash = [&](int x) { return WindowAt(2 * (10 + x), 40) == RED; };
  EXPECT_TRUE(isDash(0));
  EXPECT_TRUE(isDash(17));
  EXPECT_FALSE(isDash(18));
  EXPECT_FALSE(isDash(23));
  EXPECT_TRUE(isDash(24));
  EXPECT_TRUE(isDash(41));
  EXPECT_FALSE(isDash(42));
  EXPECT_TRUE(isDash(48));
  EXPECT_FALSE(isDash(50));
}

TEST_F(FineDrawing, CirclesFillTheBoxOfTheBitmapsCircle) {
  Open(480, 640, 192);
  theCanvas.DrawFilledCircle(RED, 1, GREEN, 50, 60, 20);
  Present();
  ExpectInk({60, 80, 140, 160});
  EXPECT_EQ(GREEN, WindowAt(100, 120));
}

TEST_F(FineDrawing, RectanglesHaveSharpOutlines) {
  Open(480, 640, 192);
  theCanvas.DrawRectangle(RED, 1, GREEN, {10, 20, 30, 40});
  Present();
  ExpectInk({20, 40, 60, 80});
  EXPECT_EQ(RED, WindowAt(21, 41));
  EXPECT_EQ(GREEN, WindowAt(22, 42));
  EXPECT_EQ(GREEN, WindowAt(57, 77));
  EXPECT_EQ(RED, WindowAt(58, 78));
}

TEST_F(FineDrawing, SinglePixelsAreRoundDots) {
  Open(960, 640, 384);
  SetPixel(theCanvas.GetDrawingDC(), 10, 20, RED);
  Present();
  EXPECT_EQ(RED, WindowAt(41, 82));
  EXPECT_EQ(RED, WindowAt(42, 81));
  EXPECT_NE(RED, WindowAt(40, 80));
  EXPECT_NE(RED, WindowAt(43, 83));
  ExpectInk({39, 79, 45, 85});
}

/// All around, the ring has the same width at the same distance.
TEST_F(FineDrawing, CirclesOfPixelsAreSmooth) {
  Open(960, 640, 384);
  theCanvas.DrawCircleOutline(RED, 60, 70, 40);
  Present();
  for (int degrees = 0; degrees < 360; degrees += 5) {
    const double angle = degrees * 3.14159265 / 180;
    const auto at = [&](double radius) {
      return WindowAt(static_cast<int>(4 * (60.5 + radius * std::cos(angle))),
                      static_cast<int>(4 * (70.5 + radius * std::sin(angle))));
    };
    EXPECT_EQ(RED, at(40)) << degrees;
    EXPECT_EQ(BLACK, at(39)) << degrees;
    EXPECT_EQ(BLACK, at(41)) << degrees;
  }
}

/// Steps of a pixel are the bitmap's rounding, not the line's.
TEST_F(FineDrawing, LinesOfSmallStepsAreStraight) {
  Open(960, 640, 384);
  std::vector<POINT> steps;
  for (int step = 0; step < 40; ++step) {
    steps.push_back({10 + step, 20 + step / 4});
  }
  theCanvas.DrawPolyline(RED, 1, steps.data(), static_cast<int>(steps.size()));
  Present();
  // 4 steps of 4 pixels are one down, which are 16 and 4 of the screen's.
  const auto topOf = [&](int x) {
    int y = 80;
    while (WindowAt(x, y) != RED) {
      ++y;
    }
    return y;
  };
  EXPECT_NEAR(topOf(4 * 14) + 16, topOf(4 * 30), 2);
  EXPECT_GT(topOf(4 * 24), topOf(4 * 22));
  EXPECT_GT(topOf(4 * 26), topOf(4 * 24));
}

TEST_F(FineDrawing, LinesFromFarAwayComeFromThere) {
  Open(480, 640, 192);
  const POINT points[] = {{-30'000'000, 100}, {60, 100}, {60, 40'000'000}};
  theCanvas.DrawPolyline(RED, 1, points, 3);
  Present();
  EXPECT_EQ(RED, WindowAt(0, 200));
  EXPECT_EQ(RED, WindowAt(100, 201));
  EXPECT_EQ(RED, WindowAt(120, 639));
  EXPECT_EQ(BLACK, WindowAt(124, 200));
}

TEST_F(FineDrawing, StaysInsideTheClip) {
  Open(480, 640, 192);
  const Region region(CreateRectRgn(20, 20, 40, 40));
  theCanvas.SetClipRegion(region.get());
  Fill({0, 0, 100, 100}, RED);
  theCanvas.DrawFilledCircle(GREEN, 3, GREEN, 30, 30, 40);
  SetPixel(theCanvas.GetDrawingDC(), 19, 30, WHITE);
  SetPixel(theCanvas.GetDrawingDC(), 20, 30, WHITE);
  theCanvas.SetClipRegion(nullptr);
  Present();
  ExpectInk({40, 40, 80, 80});
  EXPECT_NE(GREEN, WindowAt(41, 61));
}

TEST_F(FineDrawing, TextFillsItsBox) {
  Open(480, 640, 192);
  for (const int height : {12, 14, 20, 40}) {
    const Font font = theCanvas.MakeFont(TEXT("Times New Roman"), height, 0);
    const SIZE size = theCanvas.MeasureText(font.get(), TEXT("HiddenH"));
    theCanvas.FillBackground(BLACK);
    theCanvas.DrawText(font.get(), TEXT("HiddenH"), 30, 40, WHITE);
    Present();
    const RECT ink = WindowInk();
    EXPECT_GE(ink.left, 2 * 30 - 1) << height;
    EXPECT_GE(ink.top, 2 * 40 - 1) << height;
    EXPECT_LE(ink.right, 2 * (30 + size.cx) + 1) << height;
    EXPECT_LE(ink.bottom, 2 * (40 + size.cy) + 1) << height;
    // The side bearing of a letter is less than a tenth of its height.
    EXPECT_GE(ink.right, 2 * (30 + size.cx) - 2 - height / 5) << height;
  }
}

TEST_F(FineDrawing, TextIsSmooth) {
  Open(480, 640, 192);
  const Font font = theCanvas.MakeFont(TEXT("Times New Roman"), 13, 0);
  theCanvas.DrawText(font.get(), TEXT("Speed"), 30, 40, WHITE);
  Present();
  EXPECT_FALSE(IsEnlarged(2));
}

TEST_F(FineDrawing, FlagsMovePixelsWithoutChangingThem) {
  constexpr int SIDE = 480;
  Open(SIDE, SIDE, 192);
  DrawSlanted();
  const std::vector<std::uint32_t> upright = PresentedRows();
  const auto expectMoved = [&](const std::function<std::uint32_t(int x, int y)>& expected) {
    const std::vector<std::uint32_t> rows = PresentedRows();
    for (int y = 0; y < SIDE; ++y) {
      for (int x = 0; x < SIDE; ++x) {
        ASSERT_EQ(expected(x, y), rows[static_cast<std::size_t>(y * SIDE + x)]) << x << ", " << y;
      }
    }
  };
  const auto at = [&](int x, int y) { return upright[static_cast<std::size_t>(y * SIDE + x)]; };
  theInvertFlags.horz = 1;
  expectMoved([&](int x, int y) { return at(SIDE - 1 - x, y); });
  theInvertFlags.vert = 1;
  expectMoved([&](int x, int y) { return at(SIDE - 1 - x, SIDE - 1 - y); });
  theInvertFlags.color = 1;
  expectMoved([&](int x, int y) { return at(SIDE - 1 - x, SIDE - 1 - y) ^ 0xFFFFFF; });
  theInvertFlags.horz = 0;
  theInvertFlags.vert = 0;
  theInvertFlags.color = 0;
  // Clockwise, the left column becomes the top row, from the right.
  theInvertFlags.orient = 1;
  expectMoved([&](int x, int y) { return at(y, SIDE - 1 - x); });
  theInvertFlags.horz = 1;
  expectMoved([&](int x, int y) { return at(y, x); });
}

/// 1280 pixels of 288 dpi are 426 logical ones and two thirds.
TEST_F(FineDrawing, PixelsBeyondTheLastLogicalOneBelongToIt) {
  Open(1280, 720, 288);
  ASSERT_EQ(426, theCanvas.GetFrameRect().right);
  Fill({425, 0, 426, 240}, RED);
  Fill({100, 0, 101, 240}, GREEN);
  Present();
  EXPECT_EQ(BLACK, WindowAt(1274, 100));
  EXPECT_EQ(RED, WindowAt(1275, 100));
  EXPECT_EQ(RED, WindowAt(1279, 100));
  EXPECT_EQ(BLACK, WindowAt(299, 100));
  EXPECT_EQ(GREEN, WindowAt(300, 100));
  EXPECT_EQ(GREEN, WindowAt(302, 100));
  EXPECT_EQ(BLACK, WindowAt(303, 100));
}

TEST_F(FineDrawing, FollowsTheScreensResolution) {
  Open(480, 640, 192);
  DrawSlanted();
  Present();
  Open(960, 1280, 384);
  theCanvas.DrawThinLine(RED, 10, 20, 30, 20);
  Present();
  ExpectInk({40, 80, 120, 84});
  Open(240, 320, 96);
  theCanvas.DrawThinLine(RED, 10, 20, 30, 20);
  Present();
  ExpectInk({10, 20, 30, 21});
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
  Open(480, 640, 192);
  DrawSlanted();
  const std::vector<std::uint32_t> direct = PresentedRows();
  const OwnFrame kept(240, 320);
  {
    const Pen pen(CreatePen(PS_SOLID, 6, RED));
    const Selection selection(kept.GetDC(), pen.get());
    MoveToEx(kept.GetDC(), 20, 30, nullptr);
    LineTo(kept.GetDC(), 200, 90);
  }
  theCanvas.FillBackground(BLACK);
  BitBlt(theCanvas.GetDrawingDC(), 0, 0, 240, 320, kept.GetDC(), 0, 0, SRCCOPY);
  EXPECT_EQ(direct, PresentedRows());
}

TEST_F(FineDrawing, BitsWrittenByHandAreEnlarged) {
  Open(480, 640, 192);
  const OwnFrame own(240, 320);
  own.GetBits()[5] = 0x7C00;
  StretchBlt(theCanvas.GetPresentDC(), 0, 0, 480, 640, own.GetDC(), 0, 0, 240, 320, SRCCOPY);
  theCanvas.FlushToWindow();
  ExpectInk({10, 638, 12, 640});
  EXPECT_TRUE(IsEnlarged(2));
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
  };
  show();
  EXPECT_FALSE(IsEnlarged(2));
  pixels[0] ^= 1;
  show();
  EXPECT_TRUE(IsEnlarged(2));
}

class FinePicture : public FineDrawing {
 protected:
  FinePicture() {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    std::filesystem::create_directory(folder.Path("4x"));
    Write("picture.png", 2, 0xFF0000FF);
  }
  ~FinePicture() override { CoUninitialize(); }

  /// A square picture of one colour, 0xAABBGGRR.
  void Write(const std::string& name, unsigned side, std::uint32_t color) const {
    const std::vector<std::uint32_t> pixels(std::size_t{side} * side, color);
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = side;
    image.height = side;
    image.format = PNG_FORMAT_RGBA;
    png_image_write_to_file(&image, folder.Path(name).c_str(), 0, pixels.data(), 0, nullptr);
  }

  /// Colour of the picture, drawn into the frame.
  COLORREF DrawnIntoFrame() {
    Picture picture;
    EXPECT_TRUE(picture.Load(folder.DevicePath("picture.png")));
    picture.DrawBlended(theCanvas.GetDrawingDC(), {10, 10, 20, 20}, OPAQUE_ALPHA);
    Present();
    return WindowAt(30, 30);
  }

  testing_support::TempFolder folder;
};

constexpr COLORREF LOADED_RED = RGB(254, 0, 0);

TEST_F(FinePicture, IsTheLargerVersionBesideIt) {
  Write("4x/picture.png", 8, 0xFF00FF00);
  Open(480, 640, 192);
  EXPECT_EQ(GREEN, DrawnIntoFrame());
}

TEST_F(FinePicture, IsEnlargedWithoutALargerVersion) {
  Open(480, 640, 192);
  EXPECT_EQ(LOADED_RED, DrawnIntoFrame());
}

TEST_F(FinePicture, IsNotALargerVersionOfAnotherShape) {
  Write("4x/picture.png", 1, 0xFF00FF00);
  Open(480, 640, 192);
  EXPECT_EQ(LOADED_RED, DrawnIntoFrame());
}

/// Buttons are drawn over the presented frame.
TEST_F(FinePicture, IsLargerOverThePresentedFrame) {
  Write("4x/picture.png", 8, 0x8000FF00);
  Open(480, 640, 192);
  Picture picture;
  EXPECT_TRUE(picture.Load(folder.DevicePath("picture.png")));
  const HDC dc = theCanvas.GetPresentDC();
  picture.DrawBlended(dc, {10, 10, 20, 20}, OPAQUE_ALPHA);
  EXPECT_EQ(RGB(0, 128, 0), GetPixel(dc, 15, 15));
  EXPECT_EQ(BLACK, GetPixel(dc, 20, 15));
  handheld::SetFineDrawing(false);
  picture.DrawBlended(dc, {10, 10, 20, 20}, OPAQUE_ALPHA);
  EXPECT_EQ(LOADED_RED, GetPixel(dc, 15, 15));
}

}  // namespace

}  // namespace ferolin
