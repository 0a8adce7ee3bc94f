#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "gps/FixRecord.h"
#include "handheld.h"
#include "support/EditableFix.h"
#include "support/Moments.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

using testing_support::Fields;
using testing_support::Moment;

constexpr const char* RMC = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A";
constexpr const char* GGA = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47";
constexpr const char* VTG = "$GPVTG,084.4,T,022.4,M,041.5*43";
constexpr const char* GLL = "$GPGLL,4807.038,N,01131.000,E,123519,A*25";
constexpr const char* GSA = "$GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1*39";
constexpr const char* GSV = "$GPGSV,1,1,04,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45*75";

/// The device stands in Moscow; its clock says 2024-05-06 07:08:09.250 UTC, a Monday.
class NmeaParserTest : public testing::Test {
 protected:
  void SetUp() override {
    handheld::SetTimeZone("MSK-3");
    handheld::SetClockStopped(true);
    handheld::SetClock(Moment(2024, 5, 6, 7, 8, 9, 250));
    fix.emplace();
  }
  void TearDown() override {
    handheld::SetTimeZone("UTC0");
    handheld::SetClockStopped(false);
  }

  int Parse(const std::string& sentence) { return fix->ParseSentence(sentence.c_str()); }

  void ExpectNothingKnown() const {
    EXPECT_EQ(-9999.0F, fix->altitude);
    EXPECT_EQ(-9999.0F, fix->longitude);
    EXPECT_EQ(-9999.0F, fix->latitude);
    EXPECT_EQ(-9999.0F, fix->course);
    EXPECT_EQ(-9999.0F, fix->speedKnots);
    EXPECT_EQ(-9999.0F, fix->speedKmh);
    EXPECT_EQ(-9999.0F, fix->pdop);
    EXPECT_EQ(-9999.0F, fix->hdop);
    EXPECT_EQ(-9999.0F, fix->vdop);
    EXPECT_EQ(-9999.0F, fix->ggaField10);
    EXPECT_EQ(0, fix->satellitesUsed);
    EXPECT_EQ(0, fix->fixValid);
    EXPECT_EQ(0, fix->GetPointCount());
    EXPECT_EQ(-9999, fix->satellites[0].prn);
    EXPECT_EQ(Fields(SYSTEMTIME{}), Fields(fix->localTime));
  }

  void ExpectSatellite(unsigned index, int prn, int elevation, int azimuth, int snr) const {
    const SatelliteInfo& satellite = *fix->GetSatellite(index);
    EXPECT_EQ(prn, satellite.prn) << index;
    EXPECT_EQ(elevation, satellite.elevation) << index;
    EXPECT_EQ(azimuth, satellite.azimuth) << index;
    EXPECT_EQ(snr, satellite.snr) << index;
  }

  /// Checks that the times are those of the device's clock.
  void ExpectDeviceTime() const {
    EXPECT_EQ(Fields(Moment(2024, 5, 6, 10, 8, 9, 250)), Fields(fix->localTime));
    EXPECT_EQ(Fields(Moment(2024, 5, 6, 7, 8, 9, 250)), Fields(fix->utcTime));
  }

  /// Year taken from an RMC sentence of this date.
  int YearOf(const std::string& date) {
    Parse("$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4," + date + ",003.1,W*6A");
    return fix->utcTime.wYear;
  }

  std::optional<EditableFix> fix;
};

// ---- What is a sentence ----

TEST_F(NmeaParserTest, EmptySentenceChangesNothing) {
  EXPECT_EQ(0, Parse(""));
  ExpectNothingKnown();
}

TEST_F(NmeaParserTest, SentenceWithoutTheDollarSignChangesNothing) {
  EXPECT_EQ(0, Parse(RMC + 1));
  EXPECT_EQ(0, Parse(std::string(" ") + RMC));
  ExpectNothingKnown();
}

TEST_F(NmeaParserTest, OtherSentencesChangeNothing) {
  for (const char* sentence :
       {"$GPZDA,123519,23,03,1994,00,00*4F",
        "$GNRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A",
        "$PGRME,15.0,M,45.0,M,25.0,M*1C", "$", "$,,,,,,,,,,,,,,,,,,,,",
        "$GPRMCX,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W",
        "$GPRM,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W"}) {
    EXPECT_EQ(0, Parse(sentence)) << sentence;
  }
  ExpectNothingKnown();
}

TEST_F(NmeaParserTest, NamesAreComparedWithTheirCase) {
  EXPECT_EQ(0, Parse("$gprmc,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A"));
  ExpectNothingKnown();
}

TEST_F(NmeaParserTest, ChecksumIsNotVerified) {
  EXPECT_EQ(1, Parse("$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*00"));
  EXPECT_EQ(1, Parse("$GPRMC,123520,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W"));
  EXPECT_EQ(2, fix->GetPointCount());
}

TEST_F(NmeaParserTest, OnlyRmcCompletesAnEpoch) {
  EXPECT_EQ(1, Parse(RMC));
  for (const char* sentence : {GGA, VTG, GLL, GSA, GSV}) {
    EXPECT_EQ(0, Parse(sentence)) << sentence;
  }
  EXPECT_EQ(1, fix->GetPointCount());
}

/// The text behind the last separator does not count.
TEST_F(NmeaParserTest, SentencesBelowTheirFieldCountAreIgnored) {
  for (const char* sentence :
       {"$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394",
        "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M", "$GPVTG,084.4,T,022.4",
        "$GPGLL,4807.038,N,01131.000,E", "$GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1",
        "$GPGSV,1,1,01", "$GPRMC", "$GPGSV", "$GPGGA,"}) {
    EXPECT_EQ(0, Parse(sentence)) << sentence;
  }
  ExpectNothingKnown();
}

TEST_F(NmeaParserTest, SentencesWithJustTheirFieldCountAreTaken) {
  EXPECT_EQ(1, Parse("$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,"));
  EXPECT_EQ(4807.038F, fix->latitude);
  Parse("$GPGGA,123519,4808.038,N,01131.000,E,1,08,0.9,545.4,M,");
  EXPECT_EQ(4808.038F, fix->latitude);
  EXPECT_EQ(545.4F, fix->altitude);
  Parse("$GPVTG,090.0,T,011.0,");
  EXPECT_EQ(11.0F, fix->speedKnots);
  Parse("$GPGLL,4809.038,N,01131.000,E*");
  EXPECT_EQ(4809.038F, fix->latitude);
  Parse("$GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1,");
  EXPECT_EQ(2.1F, fix->vdop);
}

TEST_F(NmeaParserTest, FieldsBeyondTheFortiethAreNotLookedAt) {
  EXPECT_EQ(1, Parse(std::string(RMC) + std::string(100, ',') + "x*00"));
  EXPECT_EQ(84.4F, fix->course);
}

TEST_F(NmeaParserTest, FieldLongerThan99CharactersIsCut) {
  // 97 zeros and "48" are kept, "07.038" is not.
  const std::string latitude = std::string(97, '0') + "4807.038";
  EXPECT_EQ(1,
            Parse("$GPRMC,123519,A," + latitude + ",N,01131.000,E,022.4,084.4,230394,003.1,W*6A"));
  EXPECT_EQ(48.0F, fix->latitude);
  EXPECT_EQ(1131.0F, fix->longitude);
}

TEST_F(NmeaParserTest, EndlessFieldIsHarmless) {
  EXPECT_EQ(0, Parse("$" + std::string(2046, 'A')));
  EXPECT_EQ(1, Parse(RMC));
}

TEST_F(NmeaParserTest, MalformedNumbersReadAsZero) {
  EXPECT_EQ(1, Parse("$GPRMC,123519,A,north,N,?,E,fast,x,230394,003.1,W*6A"));
  EXPECT_EQ(0.0F, fix->latitude);
  EXPECT_EQ(0.0F, fix->longitude);
  EXPECT_EQ(0.0F, fix->speedKnots);
  EXPECT_EQ(0.0F, fix->course);
}

// ---- RMC ----

TEST_F(NmeaParserTest, RmcSetsPositionMotionAndTime) {
  EXPECT_EQ(1, Parse(RMC));
  EXPECT_EQ(1, fix->fixValid);
  EXPECT_EQ(4807.038F, fix->latitude);
  EXPECT_EQ(1131.0F, fix->longitude);
  EXPECT_EQ(22.4F, fix->speedKnots);
  // 22.4F x 1.852F rounded to single precision (bits 0x4225F06F).
  EXPECT_EQ(41.484798431396484F, fix->speedKmh);
  EXPECT_EQ(84.4F, fix->course);
  EXPECT_EQ(1994, fix->utcTime.wYear);
  EXPECT_EQ(3, fix->utcTime.wMonth);
  EXPECT_EQ(23, fix->utcTime.wDay);
  EXPECT_EQ(12, fix->utcTime.wHour);
  EXPECT_EQ(35, fix->utcTime.wMinute);
  EXPECT_EQ(19, fix->utcTime.wSecond);
}

TEST_F(NmeaParserTest, RmcAppendsItsFixAsATrackPoint) {
  Parse(GGA);
  Parse(RMC);
  ASSERT_EQ(1, fix->GetPointCount());
  const TrackPoint& point = *fix->GetPoint(0);
  EXPECT_EQ(4807.038F, point.latitude);
  EXPECT_EQ(1131.0F, point.longitude);
  EXPECT_EQ(545.4F, point.altitude);
  EXPECT_EQ(84.4F, point.course);
  EXPECT_EQ(41.484798431396484F, point.speedKmh);
  EXPECT_EQ(Fields(Moment(1994, 3, 23, 15, 35, 19, 250)), Fields(point.time));  // local time
}

TEST_F(NmeaParserTest, TenKnotsAre1852MetresAnHourEach) {
  Parse("$GPRMC,123519,A,4807.038,N,01131.000,E,10,084.4,230394,003.1,W*6A");
  EXPECT_EQ(18.52F, fix->speedKmh);
}

TEST_F(NmeaParserTest, RmcWithoutAFixStillUpdatesAndAppends) {
  EXPECT_EQ(1, Parse("$GPRMC,123519,V,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*7D"));
  EXPECT_EQ(0, fix->fixValid);
  EXPECT_EQ(4807.038F, fix->latitude);
  EXPECT_EQ(22.4F, fix->speedKnots);
  EXPECT_EQ(1994, fix->utcTime.wYear);
  EXPECT_EQ(1, fix->GetPointCount());
}

TEST_F(NmeaParserTest, OnlyTheLetterAIsAFix) {
  for (const char* status : {"V", "", "a", "AA", " A", "D"}) {
    Parse(RMC);
    EXPECT_EQ(1, fix->fixValid);
    Parse("$GPRMC,123519," + std::string(status) +
          ",4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A");
    EXPECT_EQ(0, fix->fixValid) << '"' << status << '"';
  }
}

TEST_F(NmeaParserTest, EmptySpeedWithAFixIsStandstill) {
  EXPECT_EQ(1, Parse("$GPRMC,123519,A,4807.038,N,01131.000,E,,084.4,230394,003.1,W*6A"));
  EXPECT_EQ(0.0F, fix->speedKnots);
  EXPECT_EQ(0.0F, fix->speedKmh);
  EXPECT_EQ(1, fix->GetPointCount());
}

TEST_F(NmeaParserTest, EmptySpeedWithoutAFixIsMissingAndAppendsNothing) {
  EXPECT_EQ(1, Parse("$GPRMC,123519,V,4807.038,N,01131.000,E,,084.4,230394,003.1,W*6A"));
  EXPECT_EQ(-9999.0F, fix->speedKnots);
  EXPECT_EQ(-9999.0F, fix->speedKmh);
  EXPECT_EQ(0, fix->GetPointCount());
}

TEST_F(NmeaParserTest, NegativeSpeedWithAFixIsStandstill) {
  Parse("$GPRMC,123519,A,4807.038,N,01131.000,E,-3,084.4,230394,003.1,W*6A");
  EXPECT_EQ(0.0F, fix->speedKnots);
  EXPECT_EQ(0.0F, fix->speedKmh);
}

TEST_F(NmeaParserTest, NegativeSpeedWithoutAFixStaysAndAppendsNothing) {
  Parse("$GPRMC,123519,V,4807.038,N,01131.000,E,-10,084.4,230394,003.1,W*6A");
  EXPECT_EQ(-10.0F, fix->speedKnots);
  EXPECT_EQ(-18.52F, fix->speedKmh);
  EXPECT_EQ(0, fix->GetPointCount());
}

TEST_F(NmeaParserTest, EmptyCourseKeepsTheOldOne) {
  Parse("$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,,230394,003.1,W*6A");
  EXPECT_EQ(-9999.0F, fix->course);
  Parse(RMC);
  Parse("$GPRMC,123520,A,4807.038,N,01131.000,E,022.4,,230394,003.1,W*6A");
  EXPECT_EQ(84.4F, fix->course);
}

TEST_F(NmeaParserTest, SouthAndWestAreNegative) {
  Parse("$GPRMC,123519,A,4807.038,S,01131.000,W,022.4,084.4,230394,003.1,W*6A");
  EXPECT_EQ(-4807.038F, fix->latitude);
  EXPECT_EQ(-1131.0F, fix->longitude);
}

TEST_F(NmeaParserTest, OtherHemisphereLettersAreNorthAndEast) {
  for (const char* hemispheres :
       {"N,01131.000,E", ",01131.000,", "s,01131.000,w", "SS,01131.000,WW", "W,01131.000,S"}) {
    Parse("$GPRMC,123519,A,4807.038," + std::string(hemispheres) +
          ",022.4,084.4,230394,003.1,W*6A");
    EXPECT_EQ(4807.038F, fix->latitude) << hemispheres;
    EXPECT_EQ(1131.0F, fix->longitude) << hemispheres;
  }
}

TEST_F(NmeaParserTest, EmptyCoordinatesAreMissingInEveryHemisphere) {
  for (const char* hemispheres : {"N,,E", "S,,W", ",,"}) {
    EXPECT_EQ(1, Parse("$GPRMC,123519,A,," + std::string(hemispheres) +
                       ",022.4,084.4,230394,003.1,W*6A"));
    EXPECT_EQ(-9999.0F, fix->latitude) << hemispheres;
    EXPECT_EQ(-9999.0F, fix->longitude) << hemispheres;
  }
  EXPECT_EQ(0, fix->GetPointCount());
}

TEST_F(NmeaParserTest, SameSentenceTwiceAppendsOnePoint) {
  Parse(RMC);
  EXPECT_EQ(1, Parse(RMC));
  EXPECT_EQ(1, fix->GetPointCount());
}

TEST_F(NmeaParserTest, SamePositionALittleLaterIsASecondPoint) {
  Parse(RMC);
  Parse("$GPRMC,123520,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*60");
  EXPECT_EQ(2, fix->GetPointCount());
}

// ---- Time ----

TEST_F(NmeaParserTest, TwoDigitYearsLieBetween1990And2089) {
  EXPECT_EQ(2000, YearOf("230300"));
  EXPECT_EQ(2089, YearOf("230389"));
  EXPECT_EQ(1990, YearOf("230390"));
  EXPECT_EQ(1999, YearOf("230399"));
  EXPECT_EQ(1999, YearOf("2303-1"));  // below 90, so 2000 - 1
}

TEST_F(NmeaParserTest, LocalTimeFollowsFromUtc) {
  Parse("$GPRMC,223000,A,4807.038,N,01131.000,E,022.4,084.4,311223,003.1,W*6A");
  EXPECT_EQ(Fields(Moment(2023, 12, 31, 22, 30, 0, 250)), Fields(fix->utcTime));
  EXPECT_EQ(Fields(Moment(2024, 1, 1, 1, 30, 0, 250)), Fields(fix->localTime));
}

TEST_F(NmeaParserTest, MillisecondsAndDayOfTheWeekOfUtcKeepTheirOldValues) {
  Parse(RMC);
  EXPECT_EQ(250, fix->utcTime.wMilliseconds);
  EXPECT_EQ(1, fix->utcTime.wDayOfWeek);    // the clock's Monday
  EXPECT_EQ(3, fix->localTime.wDayOfWeek);  // converted: the Wednesday that it was
}

TEST_F(NmeaParserTest, FractionalSecondsTakeTheDevicesClock) {
  EXPECT_EQ(1, Parse("$GPRMC,123519.00,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A"));
  ExpectDeviceTime();
}

TEST_F(NmeaParserTest, EmptyDateTakesTheDevicesClock) {
  Parse("$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,,003.1,W*6A");
  ExpectDeviceTime();
}

TEST_F(NmeaParserTest, TimesAndDatesOfAnyOtherLengthTakeTheDevicesClock) {
  for (const char* time : {"", "12351", "1235190"}) {
    Parse(RMC);
    Parse("$GPRMC," + std::string(time) +
          ",A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A");
    ExpectDeviceTime();
  }
  for (const char* date : {"23394", "23031994"}) {
    Parse(RMC);
    Parse("$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4," + std::string(date) +
          ",003.1,W*6A");
    ExpectDeviceTime();
  }
}

// ---- GGA ----

TEST_F(NmeaParserTest, GgaSetsPositionAltitudeAndQuality) {
  EXPECT_EQ(0, Parse("$GPGGA,123519,4807.038,S,01131.000,W,1,08,0.9,545.4,M,46.9,M,,*47"));
  EXPECT_EQ(-4807.038F, fix->latitude);
  EXPECT_EQ(-1131.0F, fix->longitude);
  EXPECT_EQ(8, fix->satellitesUsed);
  EXPECT_EQ(0.9F, fix->hdop);
  EXPECT_EQ(545.4F, fix->altitude);
  EXPECT_EQ(0.0F, fix->ggaField10);  // the unit "M" is no number
}

TEST_F(NmeaParserTest, GgaUsesNeitherTimeNorQuality) {
  Parse(RMC);
  Parse("$GPGGA,235959,4807.038,N,01131.000,E,0,08,0.9,545.4,M,46.9,M,,*47");
  EXPECT_EQ(12, fix->utcTime.wHour);
  EXPECT_EQ(1, fix->fixValid);
}

TEST_F(NmeaParserTest, NumberBehindTheAltitudeOfAGgaIsKept) {
  Parse("$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,46.9,M,,*47");
  EXPECT_EQ(46.9F, fix->ggaField10);
}

TEST_F(NmeaParserTest, EmptyGgaFieldsAreMissing) {
  Parse(GGA);
  Parse("$GPGGA,,,S,,W,,,,,,,,,*47");
  EXPECT_EQ(-9999.0F, fix->latitude);
  EXPECT_EQ(-9999.0F, fix->longitude);
  EXPECT_EQ(-9999, fix->satellitesUsed);
  EXPECT_EQ(-9999.0F, fix->hdop);
  EXPECT_EQ(-9999.0F, fix->altitude);
  EXPECT_EQ(-9999.0F, fix->ggaField10);
}

// ---- VTG ----

TEST_F(NmeaParserTest, VtgSetsCourseAndTakesItsThirdFieldForTheSpeed) {
  EXPECT_EQ(0, Parse("$GPVTG,054.7,T,10,M,005.5,N,010.2,K*48"));
  EXPECT_EQ(54.7F, fix->course);
  EXPECT_EQ(10.0F, fix->speedKnots);
  EXPECT_EQ(18.52F, fix->speedKmh);
}

TEST_F(NmeaParserTest, VtgWithoutACourseKeepsTheOldOne) {
  Parse(RMC);
  Parse("$GPVTG,,T,10,M*00");
  EXPECT_EQ(84.4F, fix->course);
}

TEST_F(NmeaParserTest, VtgWithoutASpeedForgetsIt) {
  Parse(RMC);
  Parse("$GPVTG,054.7,T,,M*00");
  EXPECT_EQ(-9999.0F, fix->speedKnots);
  EXPECT_EQ(-9999.0F, fix->speedKmh);
}

// ---- GLL ----

TEST_F(NmeaParserTest, GllSetsThePositionOnly) {
  EXPECT_EQ(0, Parse("$GPGLL,4807.038,S,01131.000,W,123519,A*25"));
  EXPECT_EQ(-4807.038F, fix->latitude);
  EXPECT_EQ(-1131.0F, fix->longitude);
  EXPECT_EQ(0, fix->fixValid);
  EXPECT_EQ(Fields(SYSTEMTIME{}), Fields(fix->localTime));
}

TEST_F(NmeaParserTest, EmptyGllFieldsAreMissing) {
  Parse(GLL);
  Parse("$GPGLL,,S,,W,123519,V*25");
  EXPECT_EQ(-9999.0F, fix->latitude);
  EXPECT_EQ(-9999.0F, fix->longitude);
}

// ---- GSA ----

TEST_F(NmeaParserTest, GsaSetsTheDilutionsOfPrecision) {
  EXPECT_EQ(0, Parse(GSA));
  EXPECT_EQ(2.5F, fix->pdop);
  EXPECT_EQ(1.3F, fix->hdop);
  EXPECT_EQ(2.1F, fix->vdop);
  EXPECT_EQ(0, fix->fixValid);
}

TEST_F(NmeaParserTest, EmptyGsaFieldsAreMissing) {
  Parse(GSA);
  Parse("$GPGSA,A,1,,,,,,,,,,,,,,,*1E");
  EXPECT_EQ(-9999.0F, fix->pdop);
  EXPECT_EQ(-9999.0F, fix->hdop);
  EXPECT_EQ(-9999.0F, fix->vdop);
}

TEST_F(NmeaParserTest, GsaWithSeventeenFieldsIsIgnored) {
  Parse("$GPGSA,A,3,04,05,,09,12,,,24,,,,2.5,1.3,2.1*39");
  EXPECT_EQ(-9999.0F, fix->pdop);
  EXPECT_EQ(-9999.0F, fix->hdop);
}

// ---- GSV ----

TEST_F(NmeaParserTest, GsvFillsSatellitesInOrderOfAppearance) {
  EXPECT_EQ(0, Parse(GSV));
  ExpectSatellite(0, 1, 40, 83, 46);
  ExpectSatellite(1, 2, 17, 308, 41);
  ExpectSatellite(2, 12, 7, 344, 39);
  ExpectSatellite(3, 14, 22, 228, 45);
  ExpectSatellite(4, -9999, -9999, -9999, -9999);
}

TEST_F(NmeaParserTest, KnownSatelliteIsUpdatedInItsSlot) {
  Parse(GSV);
  Parse("$GPGSV,1,1,04,14,23,229,44,01,41,084,,12,07,344,39,02,17,308,41*75");
  ExpectSatellite(0, 1, 41, 84, -9999);
  ExpectSatellite(3, 14, 23, 229, 44);
  ExpectSatellite(4, -9999, -9999, -9999, -9999);
}

TEST_F(NmeaParserTest, EmptySatelliteFieldsAreMissing) {
  Parse("$GPGSV,1,1,04,03,,,,04,10,,,05,,20,,06,,,30*00");
  ExpectSatellite(0, 3, -9999, -9999, -9999);
  ExpectSatellite(1, 4, 10, -9999, -9999);
  ExpectSatellite(2, 5, -9999, 20, -9999);
  ExpectSatellite(3, 6, -9999, -9999, 30);
}

TEST_F(NmeaParserTest, BlocksWithoutASatelliteNumberAreSkipped) {
  Parse("$GPGSV,1,1,04,,40,083,46,00,17,308,41,-9999,07,344,39,14,22,228,45*00");
  ExpectSatellite(0, 14, 22, 228, 45);
  ExpectSatellite(1, -9999, -9999, -9999, -9999);
}

TEST_F(NmeaParserTest, ThirteenthSatelliteFindsNoSlot) {
  Parse("$GPGSV,3,1,12,01,1,1,1,02,2,2,2,03,3,3,3,04,4,4,4*00");
  Parse("$GPGSV,3,2,12,05,5,5,5,06,6,6,6,07,7,7,7,08,8,8,8*00");
  Parse("$GPGSV,3,3,12,09,9,9,9,10,10,10,10,11,11,11,11,12,12,12,12*00");
  Parse("$GPGSV,1,1,04,13,13,13,13,14,14,14,14,15,15,15,15,12,50,50,50*00");
  for (int prn = 1; prn <= 11; ++prn) {
    ExpectSatellite(static_cast<unsigned>(prn - 1), prn, prn, prn, prn);
  }
  ExpectSatellite(11, 12, 50, 50, 50);
}

TEST_F(NmeaParserTest, SatellitesAreNeverRemoved) {
  Parse(GSV);
  Parse("$GPGSV,1,1,04,21,1,1,1,22,2,2,2,23,3,3,3,24,4,4,4*00");
  ExpectSatellite(0, 1, 40, 83, 46);
  ExpectSatellite(7, 24, 4, 4, 4);
}

/// All four blocks are read, whatever the sentence holds: the checksum's digits become a satellite
/// number, and what an earlier sentence left in the buffers follows it.
TEST_F(NmeaParserTest, ShortGsvReadsItsChecksumAndWhatEarlierSentencesLeft) {
  Parse(GSV);
  Parse("$GPGSV,1,1,01,01,41,084,47*4A");
  ExpectSatellite(0, 1, 41, 84, 47);
  ExpectSatellite(1, 2, 17, 308, 41);
  ExpectSatellite(2, 12, 7, 344, 39);
  ExpectSatellite(3, 14, 22, 228, 45);
  ExpectSatellite(4, 4, 17, 308, 41);  // "4A" reads as 4; the rest was satellite 2's
  ExpectSatellite(5, -9999, -9999, -9999, -9999);
}

TEST_F(NmeaParserTest, GsvWithoutSatellitesReadsItsChecksum) {
  Parse("$GPGSV,1,1,00*79");
  ExpectSatellite(0, 79, -9999, -9999, -9999);
  ExpectSatellite(1, -9999, -9999, -9999, -9999);
}

TEST_F(NmeaParserTest, ChecksumThatIsNoNumberIsNoSatellite) {
  Parse("$GPGSV,1,1,01,01,41,084,47*FF");
  ExpectSatellite(0, 1, 41, 84, 47);
  ExpectSatellite(1, -9999, -9999, -9999, -9999);
}

// ---- Together ----

TEST_F(NmeaParserTest, EachSentenceUpdatesOnlyItsOwnFields) {
  for (const char* sentence : {GSA, GSV, GGA, RMC}) {
    Parse(sentence);
  }
  EXPECT_EQ(2.5F, fix->pdop);
  EXPECT_EQ(0.9F, fix->hdop);  // GGA came later
  EXPECT_EQ(2.1F, fix->vdop);
  EXPECT_EQ(545.4F, fix->altitude);
  EXPECT_EQ(22.4F, fix->speedKnots);
  EXPECT_EQ(1, fix->satellites[0].prn);
}

TEST_F(NmeaParserTest, LostFixClearsOnlyTheFlag) {
  Parse(GGA);
  Parse(RMC);
  Parse("$GPRMC,123520,V,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A");
  EXPECT_EQ(0, fix->fixValid);
  EXPECT_EQ(545.4F, fix->altitude);
  EXPECT_EQ(8, fix->satellitesUsed);
}

}  // namespace
}  // namespace ferolin
