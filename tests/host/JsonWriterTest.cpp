#include <gtest/gtest.h>

#include "outputs/JsonWriter.h"

namespace host {
namespace {

/// The value in the JSON of an update.
std::string Written(const std::string& value) {
  const std::string before = R"({"update":1,"sensors":{"Name":)";
  const std::string after = "}}\n";
  const std::string json = JsonUpdate({1, std::nullopt, {{"Name", value}}, {}});
  EXPECT_TRUE(json.starts_with(before) && json.ends_with(after)) << json;
  return json.substr(before.size(), json.size() - before.size() - after.size());
}

TEST(JsonWriter, EscapesWhatJsonWants) {
  EXPECT_EQ("\"55°37'37'' NL\"", Written("55°37'37'' NL"));
  EXPECT_EQ("\"a\\\"b\\\\c\"", Written("a\"b\\c"));
  EXPECT_EQ("\"\\n\\r\\t\\u0001\\u001f\"", Written("\n\r\t\x01\x1F"));
}

TEST(JsonWriter, ReplacesBytesThatAreNoUtf8) {
  EXPECT_EQ("\"a\xEF\xBF\xBDz\"", Written("a\xFFz"));
  EXPECT_EQ("\"\xEF\xBF\xBD\"", Written("\xD0"));
  EXPECT_EQ("{\"end\":true,\"updates\":0,\"registry\":{\"\xEF\xBF\xBD\":\"1\"}}\n",
            JsonEnd(0, {{"\xD0", "1"}}));
}

TEST(JsonWriter, WritesAnUpdateInTheEnginesOrder) {
  const Update update = {
      12, 0.5, {{"GPS status", "OK"}, {"Speed", ""}, {"Altitude", "12.5 m"}}, {}};
  EXPECT_EQ(
      "{\"update\":12,\"sensors\":{\"GPS status\":\"OK\",\"Speed\":\"\",\"Altitude\":\"12.5 "
      "m\"}}\n",
      JsonUpdate(update));
}

TEST(JsonWriter, WritesWhatIsWrongWithTheReception) {
  const Update update = {12, std::nullopt, {{"Speed", ""}}, "no data for 12 s"};
  EXPECT_EQ("{\"update\":12,\"notice\":\"no data for 12 s\",\"sensors\":{\"Speed\":\"\"}}\n",
            JsonUpdate(update));
}

TEST(JsonWriter, WritesTheEnd) {
  EXPECT_EQ("{\"end\":true,\"updates\":3,\"registry\":{\"Distance\":\"1.5\",\"Путь\":\"2;3\"}}\n",
            JsonEnd(3, {{"Distance", "1.5"}, {"Путь", "2;3"}}));
  EXPECT_EQ("{\"end\":true,\"updates\":0,\"registry\":{}}\n", JsonEnd(0, {}));
}

}  // namespace
}  // namespace host
