#include <gtest/gtest.h>

#include "outputs/JsonWriter.h"

namespace host {
namespace {

/// Text without what stands before `from`.
std::string From(const std::string& from, const std::string& text) {
  return text.substr(std::min(text.find(from), text.size()));
}

/// The value in the JSON of an update.
std::string Written(const std::string& value) {
  const std::string before = R"("text":{"Name":)";
  const std::string after = "}}\n";
  const std::string json =
      From(before, JsonUpdate({1, std::nullopt, {{"Name", value}}, {}}, Figures()));
  EXPECT_TRUE(json.ends_with(after)) << json;
  return json.substr(before.size(), json.size() - before.size() - after.size());
}

Fix FullFix() {
  return {.timeMs = 1717221600250,  // 1 June 2024, 6:00:00.25
          .hasFix = true,
          .latitude = 55.75000000000001,
          .longitude = -37.6,
          .altitude = 150.5,
          .speedKmh = 18.52,  // 5.14444... m/s
          .course = 90,
          .hdop = 0.9,
          .satellites = 8};
}

Figures WholeFigures() {
  return {.distanceKm = 1.5,
          .elapsedSeconds = 100,
          .averageKmh = 54,
          .highestKmh = 90,
          .accelerations = {{10, 1.1235}, {20, std::nullopt}},
          .fastest = {{402, 17.25}}};
}

constexpr MovingTime::Sums MOVING = {1.2, 80000, 20500};  // 54 km/h

const std::string TRIP =
    R"("distance_m":1500.0,"elapsed_s":100,"moving_s":80.0,"stopped_s":20.5,)"
    R"("average_speed_mps":15.0,"moving_average_speed_mps":15.0,"max_speed_mps":25.0,)"
    R"("accelerations_s":{"0-10_kmh":1.124,"0-20_kmh":null},"fastest_s":{"402_m":17.25})";

TEST(JsonWriter, EscapesWhatJsonWants) {
  EXPECT_EQ("\"55°37'37'' NL\"", Written("55°37'37'' NL"));
  EXPECT_EQ("\"a\\\"b\\\\c\"", Written("a\"b\\c"));
  EXPECT_EQ("\"\\n\\r\\t\\u0001\\u001f\"", Written("\n\r\t\x01\x1F"));
}

TEST(JsonWriter, ReplacesBytesThatAreNoUtf8) {
  EXPECT_EQ("\"a\xEF\xBF\xBDz\"", Written("a\xFFz"));
  EXPECT_EQ("\"\xEF\xBF\xBD\"", Written("\xD0"));
}

TEST(JsonWriter, WritesAnUpdateInSiUnits) {
  const Update update = {12, 0.5, {{"Speed", "18.5 km/h"}, {"HDOP", ""}}, "", FullFix(), MOVING};
  EXPECT_EQ(R"({"update":12,"time":"2024-06-01T06:00:00.250Z","fix":true,"lat":55.75,"lon":-37.6,)"
            R"("alt_m":150.5,"speed_mps":5.144,"course_deg":90.0,"satellites":8,"hdop":0.9,)" +
                TRIP + R"(,"text":{"Speed":"18.5 km/h","HDOP":""}})" + "\n",
            JsonUpdate(update, WholeFigures()));
}

TEST(JsonWriter, WritesNeitherPositionNorMotionWithoutAFix) {
  Fix fix = FullFix();
  fix.hasFix = false;
  const std::string json = JsonUpdate({1, std::nullopt, {}, "no data for 12 s", fix, {}}, {});
  EXPECT_EQ(
      R"({"update":1,"notice":"no data for 12 s","time":"2024-06-01T06:00:00.250Z","fix":false,)"
      R"("lat":null,"lon":null,"alt_m":null,"speed_mps":null,"course_deg":null,"satellites":8,)"
      R"("hdop":0.9,)",
      json.substr(0, json.find("\"distance_m\"")));
}

TEST(JsonWriter, WritesNullForWhatIsNotKnown) {
  EXPECT_EQ(
      R"({"update":0,"time":null,"fix":null,"lat":null,"lon":null,"alt_m":null,"speed_mps":null,)"
      R"("course_deg":null,"satellites":null,"hdop":null,"distance_m":0.0,"elapsed_s":0,)"
      R"("moving_s":0.0,"stopped_s":0.0,"average_speed_mps":null,)"
      R"("moving_average_speed_mps":null,"max_speed_mps":null,"accelerations_s":{},)"
      R"("fastest_s":{},"text":{}})"
      "\n",
      JsonUpdate(Update(), Figures()));
}

TEST(JsonWriter, WritesAStateWithoutTexts) {
  const Update update = {12, 0.5, {{"Speed", "18.5 km/h"}}, "", FullFix(), MOVING};
  EXPECT_EQ(R"({"update":12,"time":"2024-06-01T06:00:00.250Z","fix":true,"lat":55.75,"lon":-37.6,)"
            R"("alt_m":150.5,"speed_mps":5.144,"course_deg":90.0,"satellites":8,"hdop":0.9,)" +
                TRIP + "}",
            JsonState(update, WholeFigures()));
}

TEST(JsonWriter, WritesTheEnd) {
  Update last;
  last.number = 3;
  last.moving = MOVING;
  EXPECT_EQ(R"({"end":true,"updates":3,)" + TRIP +
                R"(,"registry":{"Distance":"1.5","Путь":"2;3"}})" + "\n",
            JsonEnd(last, WholeFigures(), {{"Distance", "1.5"}, {"Путь", "2;3"}}));
}

}  // namespace
}  // namespace host
