#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dastrel/LatestPosition.h"

namespace dastrel {
namespace {

using namespace std::chrono_literals;

constexpr DWORD SATELLITES_KNOWN = GPS_VALID_SATELLITE_COUNT | GPS_VALID_SATELLITES_USED_PRNS |
                                   GPS_VALID_SATELLITES_IN_VIEW | GPS_VALID_SATELLITES_IN_VIEW_PRNS;

class LatestPositionTest : public testing::Test {
 protected:
  /// Passes on a report in the form in which gpsd writes it.
  void Told(const std::string& report) { latest.Update(GpsdReport::Parse(report), now); }

  GPS_POSITION Record() const { return latest.At(now); }

  LatestPosition latest;
  LatestPosition::TimePoint now = LatestPosition::TimePoint(1000s);
};

std::vector<DWORD> Entries(const DWORD (&array)[GPS_MAX_SATELLITES]) {
  return {array, array + GPS_MAX_SATELLITES};
}

TEST_F(LatestPositionTest, KnowsNothingAtFirst) {
  const GPS_POSITION record = Record();
  EXPECT_EQ(1u, record.dwVersion);
  EXPECT_EQ(344u, record.dwSize);
  EXPECT_EQ(0u, record.dwValidFields);
  EXPECT_EQ(GPS_FIX_UNKNOWN, record.FixType);
  EXPECT_EQ(0u, record.dwSatellitesInView);
}

TEST_F(LatestPositionTest, PositionReportFillsTheRecord) {
  Told(R"({"class":"TPV","device":"/dev/ttyS0","status":2,"mode":3,)"
       R"("time":"2024-02-29T23:59:58.250Z","lat":48.1173,"lon":-11.5,"altHAE":592.3,)"
       R"("altMSL":545.4,"track":84.4,"speed":10.0})");
  const GPS_POSITION record = Record();
  EXPECT_EQ(GPS_VALID_UTC_TIME | GPS_VALID_LATITUDE | GPS_VALID_LONGITUDE | GPS_VALID_SPEED |
                GPS_VALID_HEADING | GPS_VALID_ALTITUDE_WRT_SEA_LEVEL |
                GPS_VALID_ALTITUDE_WRT_ELLIPSOID,
            record.dwValidFields);
  EXPECT_EQ(GPS_FIX_3D, record.FixType);
  EXPECT_EQ(GPS_FIX_QUALITY_DGPS, record.FixQuality);
  EXPECT_EQ(GPS_FIX_SELECTION_UNKNOWN, record.SelectionType);
  EXPECT_DOUBLE_EQ(48.1173, record.dblLatitude);
  EXPECT_DOUBLE_EQ(-11.5, record.dblLongitude);
  // 10 m/s are 36000 m in an hour: 36 / 1.852 nautical miles.
  EXPECT_FLOAT_EQ(19.438445f, record.flSpeed);
  EXPECT_FLOAT_EQ(84.4f, record.flHeading);
  EXPECT_FLOAT_EQ(545.4f, record.flAltitudeWRTSeaLevel);
  EXPECT_FLOAT_EQ(592.3f, record.flAltitudeWRTEllipsoid);
}

TEST_F(LatestPositionTest, TimeIsUtcToTheMillisecond) {
  Told(R"({"class":"TPV","mode":3,"time":"2024-02-29T23:59:58.250Z"})");
  const SYSTEMTIME time = Record().stUTCTime;
  EXPECT_EQ(2024, time.wYear);
  EXPECT_EQ(2, time.wMonth);
  EXPECT_EQ(29, time.wDay);
  EXPECT_EQ(4, time.wDayOfWeek);  // a Thursday
  EXPECT_EQ(23, time.wHour);
  EXPECT_EQ(59, time.wMinute);
  EXPECT_EQ(58, time.wSecond);
  EXPECT_EQ(250, time.wMilliseconds);
}

TEST_F(LatestPositionTest, OnlyWhatWasToldIsValid) {
  Told(R"({"class":"TPV","mode":2,"lat":1.5})");
  EXPECT_EQ(GPS_VALID_LATITUDE, Record().dwValidFields);
  EXPECT_EQ(GPS_FIX_2D, Record().FixType);
}

TEST_F(LatestPositionTest, WhatTheNewestReportLeavesOutIsForgotten) {
  Told(R"({"class":"TPV","mode":3,"lat":1.5,"lon":2.5,"speed":3.0,"track":4.0,"altMSL":5.0})");
  Told(R"({"class":"TPV","mode":3,"lat":1.5,"lon":2.5})");
  EXPECT_EQ(GPS_VALID_LATITUDE | GPS_VALID_LONGITUDE, Record().dwValidFields);
}

TEST_F(LatestPositionTest, FlatFixHasNoAltitude) {
  Told(R"({"class":"TPV","mode":2,"lat":1.5,"lon":2.5,"altMSL":100.0,"altHAE":110.0})");
  EXPECT_EQ(GPS_VALID_LATITUDE | GPS_VALID_LONGITUDE, Record().dwValidFields);
}

TEST_F(LatestPositionTest, WithoutFixOnlyTimeAndSatellitesAreTold) {
  Told(R"({"class":"SKY","hdop":99.99,"pdop":99.99,"vdop":99.99,)"
       R"("satellites":[{"PRN":7,"el":45.0,"az":90.0,"ss":30.0,"used":false}]})");
  Told(R"({"class":"TPV","mode":1,"time":"2024-01-01T00:00:00.000Z","lat":1.5,"lon":2.5,)"
       R"("speed":3.0})");
  const GPS_POSITION record = Record();
  EXPECT_EQ(GPS_FIX_UNKNOWN, record.FixType);
  EXPECT_EQ(GPS_FIX_QUALITY_UNKNOWN, record.FixQuality);
  EXPECT_EQ(GPS_VALID_UTC_TIME | SATELLITES_KNOWN | GPS_VALID_SATELLITES_IN_VIEW_ELEVATION |
                GPS_VALID_SATELLITES_IN_VIEW_AZIMUTH |
                GPS_VALID_SATELLITES_IN_VIEW_SIGNAL_TO_NOISE_RATIO,
            record.dwValidFields);
}

TEST_F(LatestPositionTest, QualityFollowsTheStatus) {
  struct Case {
    const char* status;
    GPS_FIX_QUALITY quality;
  };
  // Left out: a plain fix; 2 differential; 3 and 4 RTK; 5 dead reckoning; 6 the same with
  // satellites; 7 surveyed in; 8 simulated; 9 military.
  constexpr Case CASES[] = {
      {"", GPS_FIX_QUALITY_GPS},
      {R"("status":1,)", GPS_FIX_QUALITY_GPS},
      {R"("status":2,)", GPS_FIX_QUALITY_DGPS},
      {R"("status":3,)", GPS_FIX_QUALITY_DGPS},
      {R"("status":4,)", GPS_FIX_QUALITY_DGPS},
      {R"("status":5,)", GPS_FIX_QUALITY_UNKNOWN},
      {R"("status":6,)", GPS_FIX_QUALITY_GPS},
      {R"("status":7,)", GPS_FIX_QUALITY_UNKNOWN},
      {R"("status":8,)", GPS_FIX_QUALITY_UNKNOWN},
      {R"("status":9,)", GPS_FIX_QUALITY_GPS},
  };
  for (const Case& c : CASES) {
    Told(std::string(R"({"class":"TPV",)") + c.status + R"("mode":3,"lat":1.5,"lon":2.5})");
    EXPECT_EQ(c.quality, Record().FixQuality) << c.status;
  }
}

TEST_F(LatestPositionTest, PositionIsBelievedForFiveSeconds) {
  Told(R"({"class":"TPV","mode":3,"lat":1.5,"lon":2.5,"time":"2024-01-01T00:00:00.000Z"})");
  now += 4999ms;
  EXPECT_EQ(GPS_FIX_3D, Record().FixType);
  now += 1ms;
  EXPECT_EQ(GPS_FIX_UNKNOWN, Record().FixType);
  EXPECT_EQ(0u, Record().dwValidFields);
}

TEST_F(LatestPositionTest, SkyIsBelievedForFifteenSeconds) {
  Told(R"({"class":"SKY","hdop":0.9,"satellites":[{"PRN":7,"used":true}]})");
  now += 14999ms;
  Told(R"({"class":"TPV","mode":3,"lat":1.5})");
  EXPECT_EQ(GPS_VALID_LATITUDE | GPS_VALID_HORIZONTAL_DILUTION_OF_PRECISION | SATELLITES_KNOWN,
            Record().dwValidFields);
  now += 1ms;
  EXPECT_EQ(GPS_VALID_LATITUDE, Record().dwValidFields);
  EXPECT_EQ(0u, Record().dwSatellitesInView);
}

TEST_F(LatestPositionTest, DilutionsAndSatellitesMayComeOneAfterTheOther) {
  Told(R"({"class":"TPV","mode":3})");
  Told(R"({"class":"SKY","satellites":[{"PRN":7,"used":true}]})");
  Told(R"({"class":"SKY","pdop":1.8,"hdop":0.9,"vdop":1.5})");
  EXPECT_EQ(1u, Record().dwSatellitesInView);
  EXPECT_FLOAT_EQ(1.8f, Record().flPositionDilutionOfPrecision);
  EXPECT_FLOAT_EQ(0.9f, Record().flHorizontalDilutionOfPrecision);
  EXPECT_FLOAT_EQ(1.5f, Record().flVerticalDilutionOfPrecision);
  Told(R"({"class":"SKY","satellites":[{"PRN":7,"used":true},{"PRN":8,"used":true}]})");
  EXPECT_EQ(2u, Record().dwSatellitesInView);
  EXPECT_FLOAT_EQ(0.9f, Record().flHorizontalDilutionOfPrecision);
}

TEST_F(LatestPositionTest, EmptySkyForgetsSatellitesAndDilutions) {
  Told(R"({"class":"TPV","mode":3})");
  Told(R"({"class":"SKY","hdop":0.9,"satellites":[{"PRN":7,"used":true}]})");
  Told(R"({"class":"SKY","nSat":0,"uSat":0})");
  EXPECT_EQ(SATELLITES_KNOWN, Record().dwValidFields);
  EXPECT_EQ(0u, Record().dwSatelliteCount);
  EXPECT_EQ(0u, Record().dwSatellitesInView);
  EXPECT_EQ(0u, Record().rgdwSatellitesInViewPRNs[0]);
}

TEST_F(LatestPositionTest, UsedSatellitesStandFirstOthersFollowInTheReceiversOrder) {
  Told(R"({"class":"SKY","satellites":[)"
       R"({"PRN":3,"ss":50.0,"used":false},{"PRN":9,"ss":20.0,"used":true},)"
       R"({"PRN":1,"ss":10.0,"used":false},{"PRN":65,"ss":30.0,"used":true}]})");
  const GPS_POSITION record = Record();
  EXPECT_EQ(2u, record.dwSatelliteCount);
  EXPECT_EQ(4u, record.dwSatellitesInView);
  EXPECT_EQ((std::vector<DWORD>{9, 65, 3, 1, 0, 0, 0, 0, 0, 0, 0, 0}),
            Entries(record.rgdwSatellitesInViewPRNs));
  EXPECT_EQ((std::vector<DWORD>{9, 65, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}),
            Entries(record.rgdwSatellitesUsedPRNs));
  EXPECT_EQ((std::vector<DWORD>{20, 30, 50, 10, 0, 0, 0, 0, 0, 0, 0, 0}),
            Entries(record.rgdwSatellitesInViewSignalToNoiseRatio));
}

TEST_F(LatestPositionTest, StrongestOfTheUnusedFillWhatTheUsedLeave) {
  // 10 used ones with weak signals; of the 5 unused ones 204 and 202 are the strongest, 205 is not
  // heard.
  std::string report = R"({"class":"SKY","satellites":[)"
                       R"({"PRN":201,"ss":40.0,"used":false},{"PRN":202,"ss":43.0,"used":false},)"
                       R"({"PRN":203,"ss":41.0,"used":false},{"PRN":204,"ss":45.0,"used":false},)"
                       R"({"PRN":205,"used":false})";
  for (int prn = 1; prn <= 10; prn++) {
    report += R"(,{"PRN":)" + std::to_string(prn) + R"(,"ss":15.0,"used":true})";
  }
  Told(report + "]}");
  EXPECT_EQ(10u, Record().dwSatelliteCount);
  EXPECT_EQ(12u, Record().dwSatellitesInView);
  EXPECT_EQ((std::vector<DWORD>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 202, 204}),
            Entries(Record().rgdwSatellitesInViewPRNs));
}

TEST_F(LatestPositionTest, CountTellsOfMoreUsedSatellitesThanThereIsRoomFor) {
  std::string report = R"({"class":"SKY","satellites":[{"PRN":1,"ss":10.0,"used":true})";
  for (int prn = 2; prn <= 20; prn++) {
    report += R"(,{"PRN":)" + std::to_string(prn) + R"(,"ss":20.0,"used":true})";
  }
  Told(report + "]}");
  EXPECT_EQ(20u, Record().dwSatelliteCount);
  EXPECT_EQ(12u, Record().dwSatellitesInView);
  EXPECT_EQ((std::vector<DWORD>{2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}),
            Entries(Record().rgdwSatellitesUsedPRNs));
}

TEST_F(LatestPositionTest, AnglesAndSignalsAreRounded) {
  Told(R"({"class":"SKY","satellites":[)"
       R"({"PRN":7,"el":44.5,"az":90.4,"ss":30.6,"used":true},)"
       R"({"PRN":8,"el":-3.0,"az":0.0,"ss":0.0,"used":false}]})");
  const GPS_POSITION record = Record();
  EXPECT_EQ(45u, record.rgdwSatellitesInViewElevation[0]);
  EXPECT_EQ(90u, record.rgdwSatellitesInViewAzimuth[0]);
  EXPECT_EQ(31u, record.rgdwSatellitesInViewSignalToNoiseRatio[0]);
  EXPECT_EQ(0u, record.rgdwSatellitesInViewElevation[1]);
}

TEST_F(LatestPositionTest, UnknownAnglesAreNotValid) {
  Told(R"({"class":"SKY","satellites":[{"PRN":7,"ss":30.0,"used":true}]})");
  EXPECT_EQ(SATELLITES_KNOWN | GPS_VALID_SATELLITES_IN_VIEW_SIGNAL_TO_NOISE_RATIO,
            Record().dwValidFields);
}

TEST_F(LatestPositionTest, OtherReportsChangeNothing) {
  Told(R"({"class":"TPV","mode":3,"lat":1.5})");
  now += 3s;
  Told(R"({"class":"VERSION","release":"3.22","rev":"3.22","proto_major":3,"proto_minor":14})");
  Told(R"({"class":"DEVICES","devices":[{"class":"DEVICE","path":"/dev/ttyS0"}]})");
  Told(R"({"class":"WHATEVER","lat":7.5})");
  Told("not even JSON");
  EXPECT_EQ(1.5, Record().dblLatitude);
  now += 2s;
  EXPECT_EQ(GPS_FIX_UNKNOWN, Record().FixType) << "they must not make the position look fresh";
}

TEST_F(LatestPositionTest, ClearForgetsEverything) {
  Told(R"({"class":"TPV","mode":3,"lat":1.5})");
  Told(R"({"class":"SKY","hdop":0.9,"satellites":[{"PRN":7,"used":true}]})");
  latest.Clear();
  EXPECT_EQ(GPS_FIX_UNKNOWN, Record().FixType);
  EXPECT_EQ(0u, Record().dwValidFields);
}

}  // namespace
}  // namespace dastrel
