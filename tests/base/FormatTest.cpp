#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "base/Format.h"
#include "support/CommaLocale.h"

namespace ferolin {
namespace {

TEST(FormatTest, PlainTextIsCopied) {
  EXPECT_EQ(Format("no conversions"), "no conversions");
  EXPECT_EQ(Format(""), "");
}

TEST(FormatTest, WholeNumbers) {
  EXPECT_EQ(Format("%i;%i", 7, -12), "7;-12");
  EXPECT_EQ(Format("%i", static_cast<unsigned short>(65535)), "65535");
}

TEST(FormatTest, WholeNumbersAreFilledWithZeros) {
  EXPECT_EQ(Format("%i:%02i:%02i", 9, 5, 0), "9:05:00");
  EXPECT_EQ(Format("Track%04i.kml", 37), "Track0037.kml");
}

TEST(FormatTest, FixedDecimals) {
  EXPECT_EQ(Format("%.0f %.1f %.2f %.3f %f", 2.0, 54.25F, 1.25, 9.5, 55.305),
            "2 54.2 1.25 9.500 55.305000");
}

TEST(FormatTest, WidthZeroBeforeThePrecisionIsAccepted) {
  EXPECT_EQ(Format("%0.2f|%0.1f|%0.0f", 545.456, 41.55, 84.4), "545.46|41.5|84");
}

TEST(FormatTest, TiesAreRoundedToEvenAsTheRunTimeDoes) {
  EXPECT_EQ(Format("%.0f %.0f %.0f", 0.5, 1.5, 2.5), "0 2 2");
}

TEST(FormatTest, ShortestNumbersHaveSixDigits) {
  EXPECT_EQ(Format("%g", 12.5F), "12.5");
  EXPECT_EQ(Format("%g", 100.0F), "100");
  EXPECT_EQ(Format("%g", -9999.0F), "-9999");
  EXPECT_EQ(Format("%g", 41.484798F), "41.4848");
  EXPECT_EQ(Format("%g", 0.00001F), "1e-05");
}

TEST(FormatTest, TextsFromBothKindsOfString) {
  EXPECT_EQ(Format("%s 0-%g %s", "Accel.", 10.0F, std::string("km/h")), "Accel. 0-10 km/h");
}

TEST(FormatTest, PercentSignIsDoubled) {
  EXPECT_EQ(Format("%i%%(%s)", 80, "charging"), "80%(charging)");
  EXPECT_EQ(Format("%%"), "%");
}

TEST(FormatTest, TextArgumentsAreNotReadAsFormats) {
  EXPECT_EQ(Format("%s", "100%i"), "100%i");
}

TEST(FormatTest, ConversionWithoutArgumentPrintsNothing) {
  EXPECT_EQ(Format("a%ib"), "ab");
}

TEST(FormatTest, IntoABufferIsCutAndTerminated) {
  char buffer[6] = {'x', 'x', 'x', 'x', 'x', 'x'};
  EXPECT_EQ(FormatInto(buffer, sizeof buffer, "%s-%i", "abc", 1234), 5U);
  EXPECT_STREQ(buffer, "abc-1");
}

TEST(FormatTest, IntoABufferReturnsTheLength) {
  char buffer[16];
  EXPECT_EQ(FormatInto(buffer, sizeof buffer, "%.1f %s", 54.3, "km/h"), 9U);
  EXPECT_STREQ(buffer, "54.3 km/h");
}

TEST(FormatTest, IntoABufferOfNoBytesWritesNothing) {
  char byte = 'x';
  EXPECT_EQ(FormatInto(&byte, 0, "abc"), 0U);
  EXPECT_EQ(byte, 'x');
}

TEST(FormatTest, NumberThatDoesNotFitIsCut) {
  char buffer[4];
  FormatInto(buffer, sizeof buffer, "%.3f", 123.456);
  EXPECT_STREQ(buffer, "123");
}

TEST(FormatTest, LongTextsAreCutTo255Characters) {
  const std::string longText(300, 'x');
  EXPECT_EQ(Format("%s", longText), std::string(255, 'x'));
}

TEST(FormatTest, CommaLocaleOfTheProcessChangesNothing) {
  const testing_support::CommaLocale locale;
  ASSERT_TRUE(locale.IsSet());
  char comma[8];
  std::snprintf(comma, sizeof comma, "%.1f", 54.3);
  ASSERT_STREQ(comma, "54,3");
  EXPECT_EQ(Format("%.1f", 54.3), "54.3");
}

}  // namespace
}  // namespace ferolin
