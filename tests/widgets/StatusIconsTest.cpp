#include "render/Canvas.h"
#include "widgets/StatusIcons.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

using Style = StatusIcons::Style;

TEST(StatusIcons, ChooseTheReceptionBySatellites) {
  const std::size_t expected[] = {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5};
  for (int count = 0; count < 13; ++count) {
    EXPECT_EQ(expected[count], ReceptionLevel(count)) << count;
  }
  EXPECT_EQ(5u, ReceptionLevel(99));
  EXPECT_EQ(0u, ReceptionLevel(-9999));
}

TEST(StatusIcons, ChooseTheBatteryByItsCharge) {
  const std::pair<BYTE, std::size_t> cases[] = {{0, 0},  {19, 0},  {20, 1}, {39, 1},
                                                {40, 2}, {59, 2},  {60, 3}, {79, 3},
                                                {80, 4}, {100, 4}, {255, 4}};
  for (const auto& [percent, level] : cases) {
    EXPECT_EQ(level, BatteryLevel(percent)) << int{percent};
  }
}

class StatusIconsTest : public ViewTest {
 protected:
  StatusIconsTest() { Open(240, 320); }

  StatusIcons::Places Draw(Style style = Style::OPAQUE_ICONS, COLORREF background = 0) {
    icons.Load(folder.DevicePath());
    theCanvas.BeginFrame(window);
    theCanvas.FillBackground(background);
    return icons.Draw(theCanvas, 12, style);
  }

  COLORREF At(int x, int y) const { return GetPixel(theCanvas.GetDrawingDC(), x, y); }

  StatusIcons icons;
};

void ExpectRect(const RECT& expected, const RECT& actual) {
  EXPECT_EQ(expected.left, actual.left);
  EXPECT_EQ(expected.top, actual.top);
  EXPECT_EQ(expected.right, actual.right);
  EXPECT_EQ(expected.bottom, actual.bottom);
}

TEST_F(StatusIconsTest, LieInTheUpperCorners) {
  const auto places = Draw();
  ExpectRect({0, 0, 48, 48}, places.gps);
  ExpectRect({192, 0, 240, 48}, places.battery);
  EXPECT_EQ(192, places.gapRight);
}

TEST_F(StatusIconsTest, AreOpaqueOrBlended) {
  constexpr COLORREF WHITE = RGB(255, 255, 255);
  Draw(Style::OPAQUE_ICONS, WHITE);
  EXPECT_EQ(RGB(0, 0, 0), At(0, 0)) << "the icon's corner is transparent, hence black";
  Draw(Style::BLENDED_ICONS, WHITE);
  EXPECT_EQ(WHITE, At(0, 0));
}

TEST_F(StatusIconsTest, LeaveEmptyPlacesWhenTheyAreMissing) {
  RemovePicture("GPS-5.png");
  RemovePicture("Bat-75.png");
  const auto places = Draw();
  ExpectRect({0, 0, 0, 0}, places.gps);
  ExpectRect({0, 0, 240, 0}, places.battery);
  EXPECT_EQ(240, places.gapRight);
}

TEST_F(StatusIconsTest, ShowNoBatteryWhoseStateIsUnknown) {
  handheld::SetBatteryFailing(true);
  const auto places = Draw();
  ExpectRect({0, 0, 48, 48}, places.gps);
  ExpectRect({0, 0, 240, 0}, places.battery);
  EXPECT_EQ(RGB(0, 0, 0), At(216, 24));
}

TEST_F(StatusIconsTest, ShowChargingOverTheBattery) {
  const auto count = [&] {
    Draw();
    std::vector<COLORREF> pixels;
    for (int y = 0; y < 48; ++y) {
      for (int x = 192; x < 240; ++x) {
        pixels.push_back(At(x, y));
      }
    }
    return pixels;
  };
  const auto idle = count();
  handheld::SetBattery(BATTERY_FLAG_CHARGING, 65);
  EXPECT_NE(idle, count());
  handheld::SetBattery(1, 65);
  EXPECT_EQ(idle, count()) << "other flags do not matter";
}

TEST_F(StatusIconsTest, CentreTheChargingSignAtTheTopWithoutABattery) {
  RemovePicture("Bat-75.png");
  handheld::SetBattery(BATTERY_FLAG_CHARGING, 65);
  Draw();
  int ink = 0;
  for (int y = 0; y < 320; ++y) {
    for (int x = 48; x < 240; ++x) {
      if (At(x, y) != RGB(0, 0, 0)) {
        // (240 - 48 + 0) / 2 = 96 to 144, (0 - 48 + 0) / 2 = -24 to 24.
        EXPECT_GE(x, 96);
        EXPECT_LT(x, 144);
        EXPECT_LT(y, 24);
        ++ink;
      }
    }
  }
  EXPECT_GT(ink, 0);
}

TEST_F(StatusIconsTest, AreLookedForAgainUntilTheyAreThere) {
  std::filesystem::rename(folder.Path("Pics/GPS-5.png"), folder.Path("GPS-5.png"));
  EXPECT_EQ(0, Draw().gps.right);
  std::filesystem::rename(folder.Path("GPS-5.png"), folder.Path("Pics/GPS-5.png"));
  EXPECT_EQ(48, Draw().gps.right);
}

}  // namespace

}  // namespace ferolin
