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
  EXPECT_EQ(ParseDouble("0"), 0.0);
  EXPECT_EQ(ParseDouble("022.4"), 22.4);
  EXPECT_EQ(ParseDouble("01131.000"), 1131.0);
  EXPECT_EQ(ParseDouble("-0.5"), -0.5);
  EXPECT_EQ(ParseDouble("5."), 5.0);
  EXPECT_EQ(ParseDouble(".25"), 0.25);
}

TEST(ParseDoubleTest, NoNumberIsZero) {
  for (const char* text : {"", " ", "M", "-", ".", "-.", "+", "e5", "km/h", "--1"}) {
    EXPECT_EQ(ParseDouble(text), 0.0) << '"' << text << '"';
  }
}

TEST(ParseDoubleTest, WhatFollowsTheNumberIsIgnored) {
  EXPECT_EQ(ParseDouble("12.5 km"), 12.5);
  EXPECT_EQ(ParseDouble("1.2.3"), 1.2);
  EXPECT_EQ(ParseDouble("7;9"), 7.0);
  EXPECT_EQ(ParseDouble("3,5"), 3.0);
}

TEST(ParseDoubleTest, BlanksAndSignInFrontAreAccepted) {
  EXPECT_EQ(ParseDouble("  12.5"), 12.5);
  EXPECT_EQ(ParseDouble("\t-3"), -3.0);
  EXPECT_EQ(ParseDouble("+4.5"), 4.5);
}

TEST(ParseDoubleTest, ExponentsAreRead) {
  EXPECT_EQ(ParseDouble("1e3"), 1000.0);
  EXPECT_EQ(ParseDouble("1.5e-05"), 1.5e-05);
  EXPECT_EQ(ParseDouble("2E2"), 200.0);
}

TEST(ParseDoubleTest, LongNumbersAreTheNearestDouble) {
  for (const char* text :
       {"999999999999999", "9999999999999999", "0.1234567890123456789", "123456789.123456789",
        "00000000000000000000001.5", "0.000000000000001"}) {
    EXPECT_EQ(Bits(ParseDouble(text)), Bits(std::strtod(text, nullptr))) << text;
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
    ASSERT_EQ(Bits(ParseDouble(text.c_str())), Bits(expected)) << text;
  }
}

TEST(ParseInt64Test, WholeNumbers) {
  EXPECT_EQ(ParseInt64("0"), 0);
  EXPECT_EQ(ParseInt64("090"), 90);
  EXPECT_EQ(ParseInt64("-9999"), -9999);
  EXPECT_EQ(ParseInt64("12345678901234"), 12345678901234);
}

TEST(ParseInt64Test, BlanksAndSignInFrontAreAccepted) {
  EXPECT_EQ(ParseInt64(" \t\r\n 42"), 42);
  EXPECT_EQ(ParseInt64("+42"), 42);
  EXPECT_EQ(ParseInt64("  -42"), -42);
}

TEST(ParseInt64Test, NoNumberIsZero) {
  for (const char* text : {"", " ", "x", "+", "-", "+-5", "-+5", "- 5", ";5"}) {
    EXPECT_EQ(ParseInt64(text), 0) << '"' << text << '"';
  }
}

TEST(ParseInt64Test, WhatFollowsTheNumberIsIgnored) {
  EXPECT_EQ(ParseInt64("46.5"), 46);
  EXPECT_EQ(ParseInt64("4A"), 4);
  EXPECT_EQ(ParseInt64("0x10"), 0);
}

TEST(ParseInt64Test, NumbersOutOfRangeAreTheNearestInRange) {
  EXPECT_EQ(ParseInt64("99999999999999999999"), LARGEST);
  EXPECT_EQ(ParseInt64("-99999999999999999999"), SMALLEST);
  EXPECT_EQ(ParseInt64("9223372036854775807"), LARGEST);
  EXPECT_EQ(ParseInt64("-9223372036854775808"), SMALLEST);
}

TEST(ParseIntTest, NumbersOutOfRangeAreTheNearestInRange) {
  EXPECT_EQ(ParseInt("2147483647"), LARGEST_INT);
  EXPECT_EQ(ParseInt("2147483648"), LARGEST_INT);
  EXPECT_EQ(ParseInt("-2147483649"), SMALLEST_INT);
  EXPECT_EQ(ParseInt("08"), 8);
}

}  // namespace
}  // namespace ferolin
