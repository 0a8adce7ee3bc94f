#include <gtest/gtest.h>

#include "run/SmsReports.h"

namespace host {
namespace {

TEST(SmsReports, ReadTheReceiversClock) {
  EXPECT_EQ(ParseClock("0:00:00"), 0);
  EXPECT_EQ(ParseClock("9:05:07"), 9 * 3600 + 5 * 60 + 7);
  EXPECT_EQ(ParseClock("23:59:59"), 86399);
}

TEST(SmsReports, TakeNothingElseForAClock) {
  for (const char* text : {"", "N/A", "12:30", "1:2:3:4", "1:2:", "a:b:c", "1:-2:3"}) {
    EXPECT_EQ(ParseClock(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace host
