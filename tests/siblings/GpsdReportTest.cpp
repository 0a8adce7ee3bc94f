#include <gtest/gtest.h>

#include <cmath>

#include "dastrel/GpsdReport.h"

namespace dastrel {
namespace {

using namespace std::chrono_literals;

TEST(GpsdReportTest, ReadsAPosition) {
  const GpsdReport report = GpsdReport::Parse(
      R"({"class":"TPV","mode":3,"status":2,"time":"2024-02-29T23:59:58.250Z","lat":48.5,)"
      R"("lon":-11.5,"altHAE":592.5,"altMSL":545.5,"track":84.5,"speed":10.5})"
      "\r\n");
  EXPECT_TRUE(report.isSensible);
  EXPECT_FALSE(report.sky);
  ASSERT_TRUE(report.fix);
  EXPECT_EQ(3, report.fix->mode);
  EXPECT_EQ(2, report.fix->status);
  const auto time = std::chrono::sys_days(std::chrono::year(2024) / 2 / 29) + 23h + 59min + 58250ms;
  EXPECT_EQ(time, report.fix->time);
  EXPECT_EQ(48.5, report.fix->latitude);
  EXPECT_EQ(-11.5, report.fix->longitude);
  EXPECT_EQ(592.5, report.fix->ellipsoidAltitude);
  EXPECT_EQ(545.5, report.fix->seaLevelAltitude);
  EXPECT_EQ(84.5, report.fix->course);
  EXPECT_EQ(10.5, report.fix->speed);
}

TEST(GpsdReportTest, ReadsASkyView) {
  const GpsdReport report =
      GpsdReport::Parse(R"({"class":"SKY","pdop":1.5,"satellites":[{"PRN":7,"el":10.5,"az":20.5,)"
                        R"("ss":30.5,"used":true},{"PRN":8},3]})");
  EXPECT_FALSE(report.fix);
  ASSERT_TRUE(report.sky);
  EXPECT_EQ(1.5, report.sky->pdop);
  EXPECT_TRUE(std::isnan(report.sky->hdop));
  ASSERT_EQ(2u, report.sky->satellites.size());
  EXPECT_EQ(7, report.sky->satellites[0].prn);
  EXPECT_EQ(10.5, report.sky->satellites[0].elevation);
  EXPECT_EQ(20.5, report.sky->satellites[0].azimuth);
  EXPECT_EQ(30.5, report.sky->satellites[0].signal);
  EXPECT_TRUE(report.sky->satellites[0].isUsed);
  EXPECT_FALSE(report.sky->satellites[1].isUsed);
}

TEST(GpsdReportTest, ImpossibleValuesAreUnknown) {
  const GpsdReport report =
      GpsdReport::Parse(R"({"class":"TPV","mode":"3","lat":90.5,"lon":-180.5,"speed":556,)"
                        R"("track":-1,"altMSL":"high","time":"2024-02-30T00:00:00Z"})");
  ASSERT_TRUE(report.fix);
  EXPECT_EQ(0, report.fix->mode);
  EXPECT_FALSE(report.fix->time);
  for (const double value : {report.fix->latitude, report.fix->longitude, report.fix->speed,
                             report.fix->course, report.fix->seaLevelAltitude}) {
    EXPECT_TRUE(std::isnan(value)) << value;
  }
}

TEST(GpsdReportTest, ReadsOnlyTimesThatExist) {
  const auto isTime = [](const std::string& time) {
    return GpsdReport::Parse(R"({"class":"TPV","time":")" + time + "\"}").fix->time.has_value();
  };
  EXPECT_TRUE(isTime("2024-02-29T23:59:60Z"));
  EXPECT_TRUE(isTime("2024-02-29T23:59:59.123456789Z"));
  for (const char* time :
       {"", "Z", "2024-02-29T23:59:59", "2024-02-29T24:00:00Z", "2024-13-01T00:00:00Z",
        "abcd-02-03T04:05:06Z", "2024-02-29T-1:00:00Z"}) {
    EXPECT_FALSE(isTime(time)) << time;
  }
}

TEST(GpsdReportTest, OtherObjectsHaveNothingToTell) {
  for (const char* line : {"{}", R"({"class":"VERSION","release":"3.22"})", R"({"class":5})",
                           R"({"clas":"DEVICES","devices":[{"path":"/dev/x"}]})"}) {
    const GpsdReport report = GpsdReport::Parse(line);
    EXPECT_TRUE(report.isSensible) << line;
    EXPECT_FALSE(report.fix || report.sky) << line;
  }
}

TEST(GpsdReportTest, WhatIsCutOffOrNoObjectMakesNoSense) {
  for (const char* line :
       {"", "\r\n", "hello", "[]", "{", R"({"class":"TPV","mode":3)",
        R"({"class":"TPV","lat":1e999})", R"({"class":"DEVICES","devices":[{"class":"DEVICE")",
        "$GPRMC,,V,,,,,,,,,*00"}) {
    EXPECT_FALSE(GpsdReport::Parse(line).isSensible) << line;
  }
}

}  // namespace
}  // namespace dastrel
