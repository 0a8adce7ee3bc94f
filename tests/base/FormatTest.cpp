#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "base/Format.h"
#include "support/CommaLocale.h"
#include "support/Rounds.h"

namespace ferolin {
namespace {

TEST(FormatTest, PlainTextIsCopied) {
  EXPECT_EQ("no conversions", Format("no conversions"));
  EXPECT_EQ("", Format(""));
}

TEST(FormatTest, WholeNumbers) {
  EXPECT_EQ("7;-12", Format("%i;%i", 7, -12));
  EXPECT_EQ("65535", Format("%i", static_cast<unsigned short>(65535)));
}

TEST(FormatTest, WholeNumbersAreFilledWithZeros) {
  EXPECT_EQ("9:05:00", Format("%i:%02i:%02i", 9, 5, 0));
  EXPECT_EQ("Track0037.kml", Format("Track%04i.kml", 37));
}

TEST(FormatTest, WholeNumbersOfAllSizes) {
  EXPECT_EQ("0 -1 2147483647 -2147483648",
            Format("%i %i %i %i", 0, -1, std::numeric_limits<int>::max(),
                   std::numeric_limits<int>::min()));
}

TEST(FormatTest, ZerosFillBehindTheSign) {
  EXPECT_EQ("-5 -05 -12 00 1234567", Format("%02i %03i %02i %02i %04i", -5, -5, -12, 0, 1234567));
}

TEST(FormatTest, OtherWaysToPrintWholeNumbersAreTheRunTimes) {
  EXPECT_EQ("  7|007|0000000012", Format("%3i|%.3i|%010i", 7, 7, 12));
}

TEST(FormatTest, FixedDecimals) {
  EXPECT_EQ("2 54.2 1.25 9.500 55.305000",
            Format("%.0f %.1f %.2f %.3f %f", 2.0, 54.25F, 1.25, 9.5, 55.305));
}

TEST(FormatTest, WidthZeroBeforeThePrecisionIsAccepted) {
  EXPECT_EQ("545.46|41.5|84", Format("%0.2f|%0.1f|%0.0f", 545.456, 41.55, 84.4));
}

TEST(FormatTest, TiesAreRoundedToEvenAsTheRunTimeDoes) {
  EXPECT_EQ("0 2 2", Format("%.0f %.0f %.0f", 0.5, 1.5, 2.5));
}

/// Every fourth number is a tie of some decimal, or lies a bit above or below one.
TEST(FormatTest, RandomNumbersHaveTheRunTimesDigits) {
  std::mt19937 random(1);
  const int rounds = testing_support::Rounds(1'000, 10'000);
  for (int round = 0; round < rounds; ++round) {
    double value =
        std::ldexp(static_cast<double>(random()) - 0x1p31, -static_cast<int>(random() % 40));
    if (round % 4 == 0) {
      value = std::ldexp(std::round(value), -static_cast<int>(random() % 8));
      value = round % 8 == 0 ? value : std::nextafter(value, round % 16 == 4 ? -1e12 : 1e12);
    }
    for (const char* conversion : {"%.0f", "%.1f", "%.2f", "%.3f", "%f", "%.7f"}) {
      char expected[64];
      std::snprintf(expected, sizeof expected, conversion, value);
      ASSERT_EQ(expected, Format(conversion, value)) << conversion;
    }
  }
  EXPECT_EQ("-0.0 0.0 1.000000 -0", Format("%.1f %.1f %f %.0f", -0.01, 0.04, 0.9999999, -0.0));
}

TEST(FormatTest, ShortestNumbersHaveSixDigits) {
  EXPECT_EQ("12.5", Format("%g", 12.5F));
  EXPECT_EQ("100", Format("%g", 100.0F));
  EXPECT_EQ("-9999", Format("%g", -9999.0F));
  EXPECT_EQ("41.4848", Format("%g", 41.484798F));
  EXPECT_EQ("1e-05", Format("%g", 0.00001F));
}

TEST(FormatTest, TextsFromBothKindsOfString) {
  EXPECT_EQ("Accel. 0-10 km/h", Format("%s 0-%g %s", "Accel.", 10.0F, std::string("km/h")));
}

TEST(FormatTest, PercentSignIsDoubled) {
  EXPECT_EQ("80%(charging)", Format("%i%%(%s)", 80, "charging"));
  EXPECT_EQ("%", Format("%%"));
}

TEST(FormatTest, TextArgumentsAreNotReadAsFormats) {
  EXPECT_EQ("100%i", Format("%s", "100%i"));
}

TEST(FormatTest, ConversionWithoutArgumentPrintsNothing) {
  EXPECT_EQ("ab", Format("a%ib"));
}

TEST(FormatTest, IntoABufferIsCutAndTerminated) {
  char buffer[6] = {'x', 'x', 'x', 'x', 'x', 'x'};
  EXPECT_EQ(5U, FormatInto(buffer, sizeof buffer, "%s-%i", "abc", 1234));
  EXPECT_STREQ("abc-1", buffer);
}

TEST(FormatTest, IntoABufferReturnsTheLength) {
  char buffer[16];
  EXPECT_EQ(9U, FormatInto(buffer, sizeof buffer, "%.1f %s", 54.3, "km/h"));
  EXPECT_STREQ("54.3 km/h", buffer);
}

TEST(FormatTest, IntoABufferOfNoBytesWritesNothing) {
  char byte = 'x';
  EXPECT_EQ(0U, FormatInto(&byte, 0, "abc"));
  EXPECT_EQ('x', byte);
}

TEST(FormatTest, NumberThatDoesNotFitIsCut) {
  char buffer[4];
  FormatInto(buffer, sizeof buffer, "%.3f", 123.456);
  EXPECT_STREQ("123", buffer);
}

TEST(FormatTest, LongTextsAreCutTo255Characters) {
  const std::string longText(300, 'x');
  EXPECT_EQ(std::string(255, 'x'), Format("%s", longText));
}

TEST(FormatTest, CommaLocaleOfTheProcessChangesNothing) {
  const testing_support::CommaLocale locale;
  ASSERT_TRUE(locale.IsSet());
  char comma[8];
  std::snprintf(comma, sizeof comma, "%.1f", 54.3);
  ASSERT_STREQ("54,3", comma);
  EXPECT_EQ("54.3", Format("%.1f", 54.3));
}

}  // namespace
}  // namespace ferolin
