// The satellites, compared with pictures that were looked at.

#include "base/Format.h"
#include "gps/FixRecord.h"
#include "widgets/Golden.h"
#include "widgets/PictureLanguage.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

class SatellitesPictures : public ViewTest {
 protected:
  SatellitesPictures() : ViewTest(GetPictureLanguage()) {}

  /// Twelve satellites: signals on both sides of every limit, one that is not received, and the
  /// longest figures.
  void SeeTheSky() {
    Receive(Satellites{{
        {2, 78, 300, 50},
        {5, 62, 95, 49},
        {7, 15, 42, 21},
        {9, 35, 250, 20},
        {12, 48, 180, 99},
        {14, 4, 88, 12},
        {17, 9, 310, 0},
        {21, 55, 20, 42},
        {24, 22, 140, 120},
        {26, 0, 200, MISSING_VALUE},
        {29, 30, 330, 35},
        {193, 5, 268, 60},
    }});
    GPS_POSITION position = {};
    position.dwValidFields = GPS_VALID_SATELLITE_COUNT |
                             GPS_VALID_HORIZONTAL_DILUTION_OF_PRECISION |
                             GPS_VALID_VERTICAL_DILUTION_OF_PRECISION;
    position.dwSatelliteCount = 11;
    position.flHorizontalDilutionOfPrecision = 99.9F;
    position.flVerticalDilutionOfPrecision = 99.9F;
    Receive(position);
    Drive("143027", 87, 40);
  }

  void Expect(const std::string& name, bool withBars = false) {
    ShowBars(FEROLIN_VIEW_SATELLITES, withBars);
    Draw(FEROLIN_VIEW_SATELLITES);
    ExpectGolden((IS_RUSSIAN ? "russian-" : "") + name, Shown());
  }
};

using Size = std::pair<int, int>;

class SatellitesPicturesOfSize : public SatellitesPictures,
                                 public testing::WithParamInterface<Size> {};

TEST_P(SatellitesPicturesOfSize, Match) {
  const auto [width, height] = GetParam();
  Open(width, height);
  SeeTheSky();
  Expect(Format("satellites-%ix%i", width, height));
}

INSTANTIATE_TEST_SUITE_P(Sizes, SatellitesPicturesOfSize,
                         testing::ValuesIn(IS_RUSSIAN ? std::vector<Size>{{240, 320}}
                                                      : std::vector<Size>{{176, 220},
                                                                          {240, 320},
                                                                          {320, 240},
                                                                          {480, 640},
                                                                          {640, 480},
                                                                          {480, 800},
                                                                          {800, 480}}));

TEST_F(SatellitesPictures, MatchWithoutSatellites) {
  Open(320, 240);
  engine->OnUpdate("$GPRMC,000000,V,,,,,,,230324,,*00");
  Expect("satellites-none");
}

TEST_F(SatellitesPictures, MatchWithBarsOnAFineScreen) {
  if (IS_RUSSIAN) {
    GTEST_SKIP() << "the words are in the other pictures";
  }
  Open(480, 640, 192);
  SeeTheSky();
  Expect("satellites-480x640-192dpi", true);
}

}  // namespace

}  // namespace ferolin
