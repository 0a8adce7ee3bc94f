#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "drives/DriveTexts.h"
#include "drives/XmlText.h"

namespace host {
namespace {

// 21 November 2026, 17:42:03.250 UTC: 20,778 days and 63,723.25 s after 1970.
constexpr std::int64_t MOMENT_MS = (20778LL * 86400 + 63723) * 1000 + 250;

class DriveTextsTest : public testing::Test {
 protected:
  ~DriveTextsTest() override { SetZone("UTC0"); }

  static void SetZone(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
};

TEST_F(DriveTextsTest, ShowsTimesInTheUsersZone) {
  SetZone("XST-8");  // eight hours east
  EXPECT_EQ("22 Nov", DescribeDay(MOMENT_MS));
  EXPECT_EQ("01:42:03", DescribeClock(MOMENT_MS));
  EXPECT_EQ("2026-11-22 01:42", DescribeMoment(MOMENT_MS));
  EXPECT_EQ("2026-11-22-014203", DescribeFileTime(MOMENT_MS));
  SetZone("UTC0");
  EXPECT_EQ("21 Nov", DescribeDay(MOMENT_MS));
}

TEST_F(DriveTextsTest, WritesUtcWithMilliseconds) {
  SetZone("XST-8");
  EXPECT_EQ("2026-11-21T17:42:03.250Z", DescribeUtc(MOMENT_MS));
  EXPECT_EQ("1970-01-01T00:00:00.000Z", DescribeUtc(0));
  EXPECT_EQ("1969-12-31T23:59:59.999Z", DescribeUtc(-1));
  EXPECT_EQ("", DescribeUtc(std::nullopt));
}

TEST_F(DriveTextsTest, WritesDurationsAndDistances) {
  EXPECT_EQ("0:00:00", DescribeDuration(999));
  EXPECT_EQ("1:02:03", DescribeDuration(3723000));
  EXPECT_EQ("27:00:00", DescribeDuration(97200000));
}

TEST_F(DriveTextsTest, WritesCoordinatesToTheMillimetre) {
  EXPECT_EQ("-33.45678901", DescribeCoordinate(-33.456789012));
  EXPECT_EQ("", DescribeCoordinate(std::nullopt));
}

TEST(XmlText, EscapesWhatXmlCannotHold) {
  EXPECT_EQ("a&amp;b&lt;c&gt;d&quot;e'", XmlText("a&b<c>d\"e'"));
  EXPECT_EQ("żółw \xF0\x9F\x9A\x97", XmlText("żółw \xF0\x9F\x9A\x97"));
  EXPECT_EQ("?a?b?", XmlText("\x01"
                             "a\xFF"
                             "b\xEF\xBF\xBF"));
  EXPECT_EQ("\xEF\xBF\xBD", XmlText("\xEF\xBF\xBD"));
  EXPECT_EQ("?", XmlText(std::string_view("\0", 1)));
}

}  // namespace
}  // namespace host
