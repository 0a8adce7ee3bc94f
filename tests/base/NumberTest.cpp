#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "base/Number.h"

namespace ferolin {
namespace {

constexpr int SMALLEST_INT = std::numeric_limits<int>::min();
constexpr int LARGEST_INT = std::numeric_limits<int>::max();
constexpr std::int64_t SMALLEST = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t LARGEST = std::numeric_limits<std::int64_t>::max();

std::uint64_t Bits(double value) {
  return std::bit_cast<std::uint64_t>(value);
}

TEST(ParseDoubleTest, PlainDecimals) {
  EXPECT_EQ(0.0, ParseDouble("0"));
  EXPECT_EQ(22.4, ParseDouble("022.4"));
  EXPECT_EQ(1131.0, ParseDouble("01131.000"));
  EXPECT_EQ(-0.5, ParseDouble("-0.5"));
  EXPECT_EQ(5.0, ParseDouble("5."));
  EXPECT_EQ(0.25, ParseDouble(".25"));
}

TEST(ParseDoubleTest, NoNumberIsZero) {
  for (const char* text : {"", " ", "M", "-", ".", "-.", "+", "e5", "km/h", "--1"}) {
    EXPECT_EQ(0.0, ParseDouble(text)) << '"' << text << '"';
  }
}

TEST(ParseDoubleTest, WhatFollowsTheNumberIsIgnored) {
  EXPECT_EQ(12.5, ParseDouble("12.5 km"));
  EXPECT_EQ(1.2, ParseDouble("1.2.3"));
  EXPECT_EQ(7.0, ParseDouble("7;9"));
  EXPECT_EQ(3.0, ParseDouble("3,5"));
}

TEST(ParseDoubleTest, BlanksAndSignInFrontAreAccepted) {
  EXPECT_EQ(12.5, ParseDouble("  12.5"));
  EXPECT_EQ(-3.0, ParseDouble("\t-3"));
  EXPECT_EQ(4.5, ParseDouble("+4.5"));
}

TEST(ParseDoubleTest, ExponentsAreRead) {
  EXPECT_EQ(1000.0, ParseDouble("1e3"));
  EXPECT_EQ(1.5e-05, ParseDouble("1.5e-05"));
  EXPECT_EQ(200.0, ParseDouble("2E2"));
}

TEST(ParseDoubleTest, LongNumbersAreTheNearestDouble) {
  for (const char* text :
       {"999999999999999", "9999999999999999", "0.1234567890123456789", "123456789.123456789",
        "00000000000000000000001.5", "0.000000000000001"}) {
    EXPECT_EQ(Bits(std::strtod(text, nullptr)), Bits(ParseDouble(text))) << text;
  }
}

/// The C library reads the same texts in its own way.
TEST(ParseDoubleTest, RandomDecimalsAreReadToTheLastBit) {
  std::mt19937 random(1);
  for (int round = 0; round < 20000; ++round) {
    std::string text = random() % 4 == 0 ? "-" : "";
    for (unsigned digits = random() % 10; digits > 0; --digits) {
      text += static_cast<char>('0' + random() % 10);
    }
    text += random() % 5 == 0 ? "" : ".";
    for (unsigned digits = random() % 9; digits > 0; --digits) {
      text += static_cast<char>('0' + random() % 10);
    }
    const double expected = std::strtod(text.c_str(), nullptr);
    // A lone "-." is no number at all, and its zero has no sign.
    ASSERT_EQ(Bits(expected), Bits(ParseDouble(text.c_str()))) << text;
  }
}

TEST(ParseInt64Test, WholeNumbers) {
  EXPECT_EQ(0, ParseInt64("0"));
  EXPECT_EQ(90, ParseInt64("090"));
  EXPECT_EQ(-9999, ParseInt64("-9999"));
  EXPECT_EQ(12345678901234, ParseInt64("12345678901234"));
}

TEST(ParseInt64Test, BlanksAndSignInFrontAreAccepted) {
  EXPECT_EQ(42, ParseInt64(" \t\r\n 42"));
  EXPECT_EQ(42, ParseInt64("+42"));
  EXPECT_EQ(-42, ParseInt64("  -42"));
}

TEST(ParseInt64Test, NoNumberIsZero) {
  for (const char* text : {"", " ", "x", "+", "-", "+-5", "-+5", "- 5", ";5"}) {
    EXPECT_EQ(0, ParseInt64(text)) << '"' << text << '"';
  }
}

TEST(ParseInt64Test, WhatFollowsTheNumberIsIgnored) {
  EXPECT_EQ(46, ParseInt64("46.5"));
  EXPECT_EQ(4, ParseInt64("4A"));
  EXPECT_EQ(0, ParseInt64("0x10"));
}

TEST(ParseInt64Test, NumbersOutOfRangeAreTheNearestInRange) {
  EXPECT_EQ(LARGEST, ParseInt64("99999999999999999999"));
  EXPECT_EQ(SMALLEST, ParseInt64("-99999999999999999999"));
  EXPECT_EQ(LARGEST, ParseInt64("9223372036854775807"));
  EXPECT_EQ(SMALLEST, ParseInt64("-9223372036854775808"));
}

TEST(ParseIntTest, NumbersOutOfRangeAreTheNearestInRange) {
  EXPECT_EQ(LARGEST_INT, ParseInt("2147483647"));
  EXPECT_EQ(LARGEST_INT, ParseInt("2147483648"));
  EXPECT_EQ(SMALLEST_INT, ParseInt("-2147483649"));
  EXPECT_EQ(8, ParseInt("08"));
  EXPECT_EQ(999999999, ParseInt("999999999"));
  EXPECT_EQ(1999999999, ParseInt("1999999999"));
  EXPECT_EQ(7, ParseInt("0000000000007"));
}

TEST(ParseIntTest, ReadsWhatAWholeNumberOf64BitsIsReadFrom) {
  EXPECT_EQ(0, ParseInt(""));
  EXPECT_EQ(-8, ParseInt(" -8"));
  EXPECT_EQ(46, ParseInt("46.5"));
  EXPECT_EQ(4, ParseInt("4A"));
}

}  // namespace
}  // namespace ferolin
