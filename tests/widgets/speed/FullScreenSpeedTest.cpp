#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

constexpr COLORREF SPEED_COLOR = RGB(255, 255, 255);
constexpr COLORREF TIME_COLOR = RGB(0, 255, 132);  // 0x80 on a scale of 31 steps is 16: 132

class FullScreenSpeedTest : public ViewTest {
 protected:
  static constexpr LONG BELOW_ICONS = 48;

  /// The smallest rectangle around all pixels of the last frame in that colour, from a row
  /// downwards.
  RECT Bounds(COLORREF color, LONG firstRow) const {
    const RECT frame = theCanvas.GetFrameRect();
    RECT bounds = {frame.right, frame.bottom, 0, 0};
    for (LONG y = firstRow; y < frame.bottom; ++y) {
      for (LONG x = 0; x < frame.right; ++x) {
        if (GetPixel(theCanvas.GetDrawingDC(), x, y) == color) {
          bounds = {std::min(bounds.left, x), std::min(bounds.top, y),
                    std::max(bounds.right, x + 1), std::max(bounds.bottom, y + 1)};
        }
      }
    }
    return bounds;
  }

  /// Draws a frame after an update, without buttons.
  std::vector<std::uint32_t> FrameFor(double kmh, const std::string& time = "120000") {
    Drive(time, kmh);
    SetSatellites(0);
    ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
    Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
    return Shown().rows;
  }
};

TEST_F(FullScreenSpeedTest, RoundsToWholeKilometres) {
  Open(240, 320);
  const auto thirteen = FrameFor(13);
  EXPECT_EQ(thirteen, FrameFor(12.7));
  EXPECT_NE(thirteen, FrameFor(12.3));
}

TEST_F(FullScreenSpeedTest, ShowsNothingBeforeItKnowsItsSensors) {
  Open(240, 320);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
  Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  EXPECT_EQ(0, Bounds(SPEED_COLOR, BELOW_ICONS).right);
}

TEST_F(FullScreenSpeedTest, ShowsZeroWithoutAFix) {
  Open(240, 320);
  const auto zero = FrameFor(0);
  engine->OnUpdate("$GPRMC,120000,V,5545.000,N,03737.000,E,99.0,0.0,230324,,*00");
  SetSatellites(0);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
  Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  EXPECT_EQ(zero, Shown().rows);
}

TEST_F(FullScreenSpeedTest, StandsAtTheRightBetweenIconsAndLowerEdge) {
  Open(240, 320);
  RemovePicture("GPS-0.png");
  FrameFor(888);
  // Size 140: cell from (320 - 140) / 2 = 90 to 230, 3 * 0.53 * 140 = 222 wide; figures begin 7
  // pixels inside it.
  const RECT bounds = Bounds(SPEED_COLOR, BELOW_ICONS);
  EXPECT_NEAR(240 - 7, bounds.right, 2);
  EXPECT_NEAR(240 - 222 + 7, bounds.left, 2);
  EXPECT_GE(bounds.top, 90);
  EXPECT_LE(bounds.bottom, 230);
}

TEST_F(FullScreenSpeedTest, MovesDownByHalfOfTheIcon) {
  Open(240, 320);
  FrameFor(888);
  const RECT withIcon = Bounds(SPEED_COLOR, BELOW_ICONS);
  RemovePicture("GPS-0.png");
  Unload();
  Open(240, 320);
  FrameFor(888);
  const RECT without = Bounds(SPEED_COLOR, BELOW_ICONS);
  // (48 - 140 + 320) / 2 = 114 against 90.
  EXPECT_EQ(24, withIcon.top - without.top);
  EXPECT_EQ(without.left, withIcon.left);
}

TEST_F(FullScreenSpeedTest, IsLargerInLandscape) {
  Open(480, 320);
  FrameFor(8);
  const RECT landscape = Bounds(SPEED_COLOR, BELOW_ICONS);
  Open(320, 480);
  FrameFor(8);
  const RECT portrait = Bounds(SPEED_COLOR, BELOW_ICONS);
  EXPECT_NEAR(170.0 / 140,
              double(landscape.bottom - landscape.top) / (portrait.bottom - portrait.top), 0.03);
}

TEST_F(FullScreenSpeedTest, PutsTheClockBetweenTheIcons) {
  Open(240, 320);
  FrameFor(50);
  const RECT bounds = Bounds(TIME_COLOR, 0);
  EXPECT_GE(bounds.left, 48);
  EXPECT_LE(bounds.right, 192);
  EXPECT_LE(bounds.bottom, 48);
  EXPECT_GT(bounds.right, bounds.left);
  EXPECT_NEAR(120, (bounds.left + bounds.right) / 2, 6);
}

TEST_F(FullScreenSpeedTest, GivesTheClockThePlaceOfABatteryWhoseStateIsUnknown) {
  handheld::SetBatteryFailing(true);
  Open(240, 320);
  FrameFor(50, "200002");
  // 48 to 240. Size 45, the largest that is no higher than the icon, is 162 wide, too wide for the
  // 144 beside a battery: from (240 - 162 + 48) / 2 = 63 to 225.
  const RECT bounds = Bounds(TIME_COLOR, 0);
  EXPECT_NEAR(63, bounds.left, 6);
  EXPECT_NEAR(225, bounds.right, 6);
  EXPECT_LE(bounds.bottom, 48);
}

TEST_F(FullScreenSpeedTest, ShrinksTheClockToFiveWithoutIcons) {
  RemovePicture("GPS-0.png");
  RemovePicture("Bat-75.png");
  Open(240, 320);
  FrameFor(50);
  const Font font = theCanvas.MakeFont(TEXT("LCD"), 5, 0);
  const LONG width = theCanvas.MeasureText(font.get(), TEXT("12:00:00")).cx;
  // The upper half of 5 pixels lies above the frame: -5 / 2 = -2.
  int ink = 0;
  for (int y = 0; y < 48; ++y) {
    for (int x = 0; x < 240; ++x) {
      if (GetPixel(theCanvas.GetDrawingDC(), x, y) != RGB(0, 0, 0)) {
        ++ink;
        EXPECT_LT(y, 3);
        EXPECT_GE(x, (240 - width) / 2);
        EXPECT_LE(x, (240 + width) / 2 + 1);
      }
    }
  }
  EXPECT_GT(ink, 0);
}

TEST_F(FullScreenSpeedTest, ShowsTheReceptionOfTheCurrentFix) {
  Open(240, 320);
  Drive("120000", 50);
  const auto corner = [&](int satellites) {
    SetSatellites(satellites);
    Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
    std::vector<COLORREF> pixels;
    for (int x = 0; x < 48; ++x) {
      for (int y = 0; y < 48; ++y) {
        pixels.push_back(GetPixel(theCanvas.GetDrawingDC(), x, y));
      }
    }
    return pixels;
  };
  EXPECT_EQ(corner(0), corner(2));
  EXPECT_NE(corner(2), corner(3));
  EXPECT_EQ(corner(3), corner(4));
  EXPECT_NE(corner(10), corner(11));
}

}  // namespace

}  // namespace ferolin
