#include <crt.h>
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/CommaLocale.h"

namespace {

std::string Print(const char* conversion, double value) {
  char text[64];
  const int length = CrtPrintDouble(text, sizeof(text), conversion, value);
  EXPECT_EQ(std::string(text).size(), static_cast<std::size_t>(length));
  return text;
}

std::string Print(const char* conversion, int value) {
  char text[64];
  const int length = CrtPrintInt(text, sizeof(text), conversion, value);
  EXPECT_EQ(std::string(text).size(), static_cast<std::size_t>(length));
  return text;
}

TEST(Crt, PrintsDoubles) {
  EXPECT_EQ("54.3", Print("%.1f", 54.3));
  EXPECT_EQ("12.5", Print("%g", 12.5));
  EXPECT_EQ("1e-05", Print("%g", 0.00001));
  EXPECT_EQ("1.5e+10", Print("%g", 1.5e10));
  EXPECT_EQ("-0.500000", Print("%f", -0.5));
  EXPECT_EQ(" 2.50", Print("%5.2f", 2.5));
  // Ties go to the even digit, and 0.15 is a little less than it looks.
  EXPECT_EQ("2", Print("%.0f", 2.5));
  EXPECT_EQ("0.1", Print("%.1f", 0.15 - DBL_EPSILON));
  EXPECT_EQ("-0.0", Print("%.1f", -0.04));
}

TEST(Crt, PrintsAsPrintfDoes) {
  const double values[] = {0.0,     -0.0,     0.05,    0.25,     1.005,   9.995,     99.95,
                           1234.5,  1e15,     1e22,    123456.5, 0.00012, 0.0000999, -0.04,
                           1e300,   5e-324,   DBL_MAX, INFINITY, NAN,     1.0 / 3,   2.0 / 3,
                           1000000, 999999.5, 999999,  -1000000, 402,     -7};
  for (const char* conversion : {"%f", "%.0f", "%.1f", "%.3f", "%.9f", "%g", "%.0g", "%.3g", "%.9g",
                                 "%8.2f", "%+.1f", "%-6.1f", "%.12g", "%e", "%.1f km"}) {
    for (const double value : values) {
      char expected[400];
      char printed[400];
      const int length = std::snprintf(expected, sizeof(expected), conversion, value);
      EXPECT_EQ(length, CrtPrintDouble(printed, sizeof(printed), conversion, value));
      EXPECT_STREQ(expected, printed) << conversion;
    }
  }
}

TEST(Crt, PrintsInts) {
  EXPECT_EQ("0007", Print("%04i", 7));
  EXPECT_EQ("-3", Print("%i", -3));
  EXPECT_EQ("2147483647", Print("%d", INT32_MAX));
}

TEST(Crt, CutsToTheBuffer) {
  char text[5] = {'x', 'x', 'x', 'x', 'x'};
  EXPECT_EQ(3, CrtPrintDouble(text, 4, "%.3f", 123.456));
  EXPECT_STREQ("123", text);
  EXPECT_EQ('x', text[4]);
  EXPECT_EQ(0, CrtPrintInt(text, 1, "%i", 5));
  EXPECT_STREQ("", text);
}

TEST(Crt, ParsesDoubles) {
  EXPECT_EQ(48.07038, CrtParseDouble("48.07038"));
  EXPECT_EQ(-12.5, CrtParseDouble(" \t\n-12.5km"));
  EXPECT_EQ(0.5, CrtParseDouble("+.5"));
  EXPECT_EQ(3, CrtParseDouble("3."));
  EXPECT_EQ(1500, CrtParseDouble("1.5e3"));
  EXPECT_EQ(1, CrtParseDouble("1e"));
  EXPECT_EQ(7, CrtParseDouble("007"));
  EXPECT_TRUE(std::signbit(CrtParseDouble("-0")));
}

TEST(Crt, ParsesNothingAsZero) {
  for (const char* text : {"", " ", "-", "+", ".", "-.", "abc", "e5", "--1", "+-1", "nan", "inf",
                           "-infinity", "0x1p4"}) {
    EXPECT_EQ(0, CrtParseDouble(text)) << text;
  }
}

TEST(Crt, ParsesBeyondTheRange) {
  EXPECT_EQ(HUGE_VAL, CrtParseDouble("1e999"));
  EXPECT_EQ(-HUGE_VAL, CrtParseDouble("-1e999"));
  EXPECT_EQ(0, CrtParseDouble("1e-999"));
}

TEST(Crt, ParsesIntegers) {
  EXPECT_EQ(4294967301, CrtParseInt64("4294967301"));
  EXPECT_EQ(-5, CrtParseInt64("  -5;7"));
  EXPECT_EQ(12, CrtParseInt64("+12.9"));
  EXPECT_EQ(0, CrtParseInt64(""));
  EXPECT_EQ(0, CrtParseInt64("x1"));
  EXPECT_EQ(INT64_MAX, CrtParseInt64("99999999999999999999"));
}

TEST(Crt, KeepsDecimalPointsInACommaLocale) {
  const testing_support::CommaLocale locale;
  ASSERT_TRUE(locale.IsSet());
  char comma[8];
  std::snprintf(comma, sizeof(comma), "%.1f", 1.5);
  EXPECT_STREQ("1,5", comma);

  EXPECT_EQ("1.5", Print("%.1f", 1.5));
  EXPECT_EQ("   1.50", Print("%7.2f", 1.5));
  EXPECT_EQ(1.5, CrtParseDouble("1.5"));
  EXPECT_EQ(1, CrtParseDouble("1,5"));
  EXPECT_EQ(HUGE_VAL, CrtParseDouble("1.5e999"));
  std::snprintf(comma, sizeof(comma), "%.1f", 1.5);
  EXPECT_STREQ("1,5", comma);
}

TEST(Crt, KnowsTheSizeOfABlock) {
  void* block = std::malloc(36000);
  EXPECT_GE(CrtBlockSize(block), 36000u);
  EXPECT_LT(CrtBlockSize(block), 72000u);
  std::free(block);
  EXPECT_EQ(0u, CrtBlockSize(nullptr));
}

}  // namespace
