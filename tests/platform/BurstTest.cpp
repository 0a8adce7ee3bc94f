#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "serial/Burst.h"

namespace {

using namespace std::chrono_literals;
using handheld::Burst;

class BurstTest : public testing::Test {
 protected:
  void Add(const std::string& bytes, Burst::Duration at = 0ms) {
    std::memcpy(burst.GetFreeSpace(), bytes.data(), bytes.size());
    burst.Add(bytes.size(), start + at);
  }

  const Burst::Time start{};
  char buffer[32];
  Burst burst{buffer, sizeof(buffer)};
};

TEST_F(BurstTest, FillsUp) {
  EXPECT_TRUE(burst.IsEmpty());
  Add(std::string(31, 'x'));
  EXPECT_FALSE(burst.IsFull());
  EXPECT_EQ(1u, burst.GetFreeSize());
  Add("x");
  EXPECT_TRUE(burst.IsFull());
}

TEST_F(BurstTest, WaitsTheFullPauseInRealTime) {
  Add("$GPRMC\r\n");
  EXPECT_EQ(20ms, burst.GetPause(1));
  EXPECT_EQ(20ms, burst.GetPause(0.5));
}

TEST_F(BurstTest, WaitsLessAfterACompleteLineWhenTimeRunsFaster) {
  Add("$GPRMC\r\n");
  EXPECT_EQ(2ms, burst.GetPause(10));
  EXPECT_EQ(200us, burst.GetPause(1000));
  EXPECT_EQ(200us, burst.GetPause(1e9));
}

TEST_F(BurstTest, WaitsTheFullPauseInTheMiddleOfALine) {
  Add("$GPRMC\r\n$GP");
  EXPECT_EQ(20ms, burst.GetPause(1000));
}

TEST_F(BurstTest, IsOverdueAfterAQuarterOfASecond) {
  EXPECT_FALSE(burst.IsOverdue(start + 1h));
  Add("a", 0ms);
  Add("b", 200ms);
  EXPECT_FALSE(burst.IsOverdue(start + 250ms));
  EXPECT_TRUE(burst.IsOverdue(start + 251ms));
}

TEST_F(BurstTest, KnowsItsWholeLines) {
  EXPECT_EQ(0u, burst.GetWholeLinesSize());
  Add("abc");
  EXPECT_EQ(0u, burst.GetWholeLinesSize());
  Add("\r\nde");
  EXPECT_EQ(5u, burst.GetWholeLinesSize());
  Add("\n");
  EXPECT_EQ(8u, burst.GetWholeLinesSize());
}

}  // namespace
