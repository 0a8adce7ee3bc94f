// Whole views, compared with pictures that were looked at.

#include <algorithm>

#include "base/Format.h"
#include "render/InvertFlags.h"
#include "sensors/Sensor.h"
#include "widgets/Golden.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

constexpr bool IS_RUSSIAN = std::string_view(LANGUAGE) == "RUS";

class ViewPictures : public ViewTest {
 protected:
  ViewPictures() : ViewTest(LANGUAGE) {}

  /// A drive as one looks at it on a Sunday afternoon.
  void TakeATrip(double kmh = 87) {
    Drive("143027", kmh, 40);
    SetSatellites(8);
    Set(FEROLIN_SENSOR_FASTEST_100, "100;3470");
    Set(FEROLIN_SENSOR_FASTEST_402, "402;15820");
    Set(FEROLIN_SENSOR_FASTEST_1000, "1000;34150");
    Set(FEROLIN_SENSOR_DISTANCE, "148.37");
    Set(FEROLIN_SENSOR_AVERAGE_SPEED, "148.37;7632");
    Set(FEROLIN_SENSOR_MAX_SPEED, "131.6");
    Set(FEROLIN_SENSOR_ACCEL_60, "60;6.42");
    Set(FEROLIN_SENSOR_ACCEL_100, "100;12.85");
    Set(FEROLIN_SENSOR_ACCEL_150, "150;31.07");
  }

  void Set(int sensor, const char* state) {
    ASSERT_EQ(1, engine->GetSensors().Get(sensor)->SetRegistryString(state)) << sensor;
  }

  void Expect(int view, const std::string& name, bool withBars = false) {
    ShowBars(view, withBars);
    Draw(view);
    ExpectGolden(Kept(view, name), Shown());
  }

  /// Name of a picture in this language. The speed in large figures has no words.
  static std::string Kept(int view, const std::string& name) {
    return (IS_RUSSIAN && view == FEROLIN_VIEW_SPEEDOMETER ? "russian-" : "") + name;
  }
};

const char* NameOf(int view) {
  return view == FEROLIN_VIEW_SPEEDOMETER ? "speedometer" : "speed";
}

struct SizeCase {
  int view, width, height;
};

class ViewPicturesOfSize : public ViewPictures, public testing::WithParamInterface<SizeCase> {};

TEST_P(ViewPicturesOfSize, Match) {
  const auto [view, width, height] = GetParam();
  Open(width, height);
  TakeATrip();
  Expect(view, Format("%s-%ix%i", NameOf(view), width, height));
}

std::vector<SizeCase> AllSizes() {
  std::vector<SizeCase> cases;
  for (const int view : {FEROLIN_VIEW_SPEEDOMETER, FEROLIN_VIEW_FULL_SCREEN_SPEED}) {
    for (const auto& [width, height] :
         {std::pair(240, 320), std::pair(320, 240), std::pair(480, 640), std::pair(640, 480),
          std::pair(480, 800), std::pair(800, 480)}) {
      cases.push_back({view, width, height});
    }
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Sizes, ViewPicturesOfSize, testing::ValuesIn(AllSizes()));

/// Bits: vertical, horizontal, colour, orientation. They know no language.
class ViewPicturesWithFlags : public ViewPictures, public testing::WithParamInterface<int> {};

TEST_P(ViewPicturesWithFlags, Match) {
  const int flags = GetParam();
  theInvertFlags.vert = flags & 1;
  theInvertFlags.horz = flags >> 1 & 1;
  theInvertFlags.color = flags >> 2 & 1;
  theInvertFlags.orient = static_cast<std::uint8_t>(flags >> 3 & 1);
  Open(320, 240);
  TakeATrip();
  Expect(FEROLIN_VIEW_SPEEDOMETER, Format("flags-%i", flags), true);
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ViewPicturesWithFlags);
INSTANTIATE_TEST_SUITE_P(All, ViewPicturesWithFlags, testing::Range(0, IS_RUSSIAN ? 0 : 16));

/// The picture turned by a quarter clockwise.
handheld::Pixels Turned(const handheld::Pixels& picture) {
  handheld::Pixels turned = {picture.height, picture.width, picture.rows};
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      turned.rows[static_cast<std::size_t>(x * picture.height + picture.height - 1 - y)] =
          picture.rows[static_cast<std::size_t>(y * picture.width + x)];
    }
  }
  return turned;
}

void MirrorRows(handheld::Pixels& picture) {
  for (auto row = picture.rows.begin(); row != picture.rows.end(); row += picture.width) {
    std::reverse(row, row + picture.width);
  }
}

/// What a picture looks like under the flags that are set now.
handheld::Pixels Oriented(handheld::Pixels picture) {
  if (theInvertFlags.orient != 0) {
    picture = Turned(picture);
  }
  // Reversing all pixels turns by half a turn: both mirrorings at once.
  if (theInvertFlags.vert != 0) {
    std::ranges::reverse(picture.rows);
  }
  if (theInvertFlags.vert != theInvertFlags.horz) {
    MirrorRows(picture);
  }
  if (theInvertFlags.color != 0) {
    std::ranges::transform(picture.rows, picture.rows.begin(),
                           [](std::uint32_t pixel) { return pixel ^ 0x00FFFFFF; });
  }
  return picture;
}

struct OrientedCase {
  int view, width, height, flags;
};

class ViewPicturesOriented : public ViewPictures,
                             public testing::WithParamInterface<OrientedCase> {};

TEST_P(ViewPicturesOriented, AreTheUprightOnesTurnedMirroredAndInverted) {
  const auto [view, width, height, flags] = GetParam();
  theInvertFlags.vert = flags & 1;
  theInvertFlags.horz = flags >> 1 & 1;
  theInvertFlags.color = flags >> 2 & 1;
  theInvertFlags.orient = static_cast<std::uint8_t>(flags >> 3 & 1);
  Open(width, height);
  TakeATrip();
  ShowBars(view, false);
  Draw(view);
  const bool isTurned = theInvertFlags.orient != 0;
  const handheld::Pixels upright =
      LoadGolden(Kept(view, Format("%s-%ix%i", NameOf(view), isTurned ? height : width,
                                   isTurned ? width : height)));
  const handheld::Pixels expected = Oriented(upright);
  const handheld::Pixels shown = Shown();
  EXPECT_EQ(width, expected.width);
  // Too long to print.
  EXPECT_TRUE(std::ranges::equal(expected.rows, shown.rows, [](std::uint32_t a, std::uint32_t b) {
    return ((a ^ b) & 0x00FFFFFF) == 0;
  }));
}

std::vector<OrientedCase> AllOrientations() {
  std::vector<OrientedCase> cases;
  for (const SizeCase& size : AllSizes()) {
    for (int flags = 1; flags < 16 && size.width + size.height == 560; ++flags) {
      cases.push_back({size.view, size.width, size.height, flags});
    }
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(All, ViewPicturesOriented, testing::ValuesIn(AllOrientations()));

struct SpeedCase {
  double kmh;
  int width, height;
};

class ViewPicturesAtSpeed : public ViewPictures, public testing::WithParamInterface<SpeedCase> {};

TEST_P(ViewPicturesAtSpeed, Match) {
  const auto [kmh, width, height] = GetParam();
  Open(width, height);
  Drive("235959", kmh, 359);
  SetSatellites(12);
  handheld::SetBattery(BATTERY_FLAG_CHARGING, 5);
  Set(FEROLIN_SENSOR_DISTANCE, "99999");
  Set(FEROLIN_SENSOR_FASTEST_100, "100;999999");
  Set(FEROLIN_SENSOR_FASTEST_402, "402;9999999");
  Set(FEROLIN_SENSOR_FASTEST_1000, "1000;99999999");
  for (const int view : {FEROLIN_VIEW_SPEEDOMETER, FEROLIN_VIEW_FULL_SCREEN_SPEED}) {
    Expect(view, Format("%s-%gkmh-%ix%i", NameOf(view), kmh, width, height));
  }
}

INSTANTIATE_TEST_SUITE_P(Extremes, ViewPicturesAtSpeed,
                         testing::Values(SpeedCase{0, 240, 320}, SpeedCase{220, 240, 320},
                                         SpeedCase{221, 320, 240}, SpeedCase{999, 240, 320},
                                         SpeedCase{999, 320, 240}));

TEST_F(ViewPictures, MatchBeforeAFix) {
  Open(240, 320);
  engine->OnUpdate("$GPRMC,000000,V,,,,,,,230324,,*00");
  Expect(FEROLIN_VIEW_SPEEDOMETER, "speedometer-no-fix");
  Expect(FEROLIN_VIEW_FULL_SCREEN_SPEED, "speed-no-fix");
}

TEST_F(ViewPictures, MatchWithoutPictures) {
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path("Pics"))) {
    if (entry.path().filename() != "speedometer.png") {
      std::filesystem::remove(entry.path());
    }
  }
  Open(320, 240);
  TakeATrip();
  Expect(FEROLIN_VIEW_SPEEDOMETER, "speedometer-no-pictures", true);
  Expect(FEROLIN_VIEW_FULL_SCREEN_SPEED, "speed-no-pictures", true);
}

TEST_F(ViewPictures, MatchWithBars) {
  Open(240, 320);
  TakeATrip();
  Expect(FEROLIN_VIEW_SPEEDOMETER, "speedometer-bars", true);
  Expect(FEROLIN_VIEW_FULL_SCREEN_SPEED, "speed-bars", true);
}

TEST_F(ViewPictures, MatchOnAFineScreen) {
  Open(480, 800, 192);
  TakeATrip();
  Expect(FEROLIN_VIEW_SPEEDOMETER, "speedometer-480x800-192dpi", true);
  Expect(FEROLIN_VIEW_FULL_SCREEN_SPEED, "speed-480x800-192dpi", true);
}

}  // namespace

}  // namespace ferolin
