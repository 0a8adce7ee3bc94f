#include <gtest/gtest.h>

#include "outputs/TimeLeft.h"

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::steady_clock::time_point START(100s);

TEST(TimeLeftTest, TakesTheTimePassedAsAMeasureForTheRest) {
  const TimeLeft time(START);
  EXPECT_EQ("0:03 left", time.Describe(0.25, START + 1s));
  EXPECT_EQ("1:30 left", time.Describe(0.1, START + 10s));
  EXPECT_EQ("0:00 left", time.Describe(1.0, START + 10s));
}

TEST(TimeLeftTest, SaysNothingInTheFirstSecond) {
  EXPECT_EQ("", TimeLeft(START).Describe(0.25, START + 999ms));
}

TEST(TimeLeftTest, SaysNothingWithoutProgress) {
  EXPECT_EQ("", TimeLeft(START).Describe(std::nullopt, START + 10s));
  EXPECT_EQ("", TimeLeft(START).Describe(0.0, START + 10s));
}

}  // namespace
}  // namespace host
