#include <gtest/gtest.h>

#include "outputs/JsonWriter.h"

namespace host {
namespace {

TEST(JsonWriter, EscapesWhatJsonWants) {
  EXPECT_EQ(JsonString("55°37'37'' NL"), "\"55°37'37'' NL\"");
  EXPECT_EQ(JsonString("a\"b\\c"), "\"a\\\"b\\\\c\"");
  EXPECT_EQ(JsonString("\n\r\t\x01\x1F\x7F"), "\"\\n\\r\\t\\u0001\\u001f\\u007f\"");
}

TEST(JsonWriter, ReplacesBytesThatAreNoUtf8) {
  EXPECT_EQ(JsonString("a\xFFz"), "\"a\xEF\xBF\xBDz\"");
  EXPECT_EQ(JsonString("\xD0"), "\"\xEF\xBF\xBD\"");
}

TEST(JsonWriter, WritesAnUpdateInTheEnginesOrder) {
  Update update;
  update.number = 12;
  update.readouts = {{"GPS status", "OK"}, {"Speed", ""}, {"Altitude", "12.5 m"}};
  EXPECT_EQ(JsonUpdate(update),
            "{\"update\":12,\"sensors\":{\"GPS status\":\"OK\",\"Speed\":\"\",\"Altitude\":\"12.5 "
            "m\"}}\n");
}

TEST(JsonWriter, WritesTheEnd) {
  EXPECT_EQ(JsonEnd(3, {{"Distance", "1.5"}, {"Путь", "2;3"}}),
            "{\"end\":true,\"updates\":3,\"registry\":{\"Distance\":\"1.5\",\"Путь\":\"2;3\"}}\n");
  EXPECT_EQ(JsonEnd(0, {}), "{\"end\":true,\"updates\":0,\"registry\":{}}\n");
}

}  // namespace
}  // namespace host
