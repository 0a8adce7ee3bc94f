// Whole views, compared with pictures that were looked at. In Russian just the ones with the
// longest words.

#include <algorithm>

#include "base/Format.h"
#include "render/InvertFlags.h"
#include "sensors/Sensor.h"
#include "widgets/Golden.h"
#include "widgets/PictureLanguage.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

class ViewPictures : public ViewTest {
 protected:
  ViewPictures() : ViewTest(GetPictureLanguage()) {}

  /// An ordinary trip, with values for all read-outs.
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
    ExpectGolden((IS_RUSSIAN ? "russian-" : "") + name, Shown());
  }
};

/// The speed in large figures has no words.
std::vector<int> Views() {
  return IS_RUSSIAN ? std::vector<int>{FEROLIN_VIEW_SPEEDOMETER}
                    : std::vector<int>{FEROLIN_VIEW_SPEEDOMETER, FEROLIN_VIEW_FULL_SCREEN_SPEED};
}

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
  if (IS_RUSSIAN) {
    return {{FEROLIN_VIEW_SPEEDOMETER, 240, 320}};
  }
  // Where the dial is tightest: a small screen, and one on which a wider dial would be cut.
  std::vector<SizeCase> cases = {{FEROLIN_VIEW_SPEEDOMETER, 176, 220},
                                 {FEROLIN_VIEW_SPEEDOMETER, 240, 240}};
  for (const int view : Views()) {
    for (const auto& [width, height] :
         {std::pair(240, 320), std::pair(320, 240), std::pair(480, 640), std::pair(640, 480),
          std::pair(480, 800), std::pair(800, 480)}) {
      cases.push_back({view, width, height});
    }
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Sizes, ViewPicturesOfSize, testing::ValuesIn(AllSizes()));

/// Bits: vertical, horizontal, colour, orientation. The buttons stay as they are. Frames under all
/// other flags are compared below, without buttons.
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
INSTANTIATE_TEST_SUITE_P(EachFlagOnce, ViewPicturesWithFlags,
                         testing::ValuesIn(IS_RUSSIAN ? std::vector<int>()
                                                      : std::vector<int>{6, 9}));

/// The picture turned clockwise by 90 degrees.
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

/// The picture presented under the flags that are set now.
handheld::Pixels Oriented(handheld::Pixels picture) {
  if (theInvertFlags.orient != 0) {
    picture = Turned(picture);
  }
  // Reversing the order of all pixels makes both mirrorings at once.
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
  const handheld::Pixels upright = LoadGolden(
      Format("%s-%ix%i", NameOf(view), isTurned ? height : width, isTurned ? width : height));
  const handheld::Pixels expected = Oriented(upright);
  const handheld::Pixels shown = Shown();
  EXPECT_EQ(width, expected.width);
  // A comparison of vectors would print all pixels.
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
  return IS_RUSSIAN ? std::vector<OrientedCase>() : cases;
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ViewPicturesOriented);
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
  for (const int view : Views()) {
    Expect(view, Format("%s-%gkmh-%ix%i", NameOf(view), kmh, width, height));
  }
}

std::vector<SpeedCase> AllSpeeds() {
  if (IS_RUSSIAN) {
    return {{999, 240, 320}, {999, 320, 240}};
  }
  return {{0, 240, 320}, {220, 240, 320}, {221, 320, 240}, {999, 240, 320}, {999, 320, 240}};
}

INSTANTIATE_TEST_SUITE_P(Extremes, ViewPicturesAtSpeed, testing::ValuesIn(AllSpeeds()));

TEST_F(ViewPictures, MatchBeforeAFix) {
  Open(240, 320);
  engine->OnUpdate("$GPRMC,000000,V,,,,,,,230324,,*00");
  for (const int view : Views()) {
    Expect(view, Format("%s-no-fix", NameOf(view)));
  }
}

TEST_F(ViewPictures, MatchWithoutPictures) {
  if (IS_RUSSIAN) {
    GTEST_SKIP() << "the words are in the other pictures";
  }
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
  if (IS_RUSSIAN) {
    GTEST_SKIP() << "the words are in the other pictures";
  }
  Open(240, 320);
  TakeATrip();
  Expect(FEROLIN_VIEW_SPEEDOMETER, "speedometer-bars", true);
  Expect(FEROLIN_VIEW_FULL_SCREEN_SPEED, "speed-bars", true);
}

TEST_F(ViewPictures, MatchOnAFineScreen) {
  if (IS_RUSSIAN) {
    GTEST_SKIP() << "the words are in the other pictures";
  }
  Open(480, 800, 192);
  TakeATrip();
  Expect(FEROLIN_VIEW_SPEEDOMETER, "speedometer-480x800-192dpi", true);
  Expect(FEROLIN_VIEW_FULL_SCREEN_SPEED, "speed-480x800-192dpi", true);
}

}  // namespace

}  // namespace ferolin
