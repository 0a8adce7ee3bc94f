#include <gtest/gtest.h>

#include "run/SmsReports.h"

namespace host {
namespace {

TEST(SmsReports, ReadTheReceiversClock) {
  EXPECT_EQ(0, ParseClock("0:00:00"));
  EXPECT_EQ(9 * 3600 + 5 * 60 + 7, ParseClock("9:05:07"));
  EXPECT_EQ(86399, ParseClock("23:59:59"));
}

TEST(SmsReports, TakeNothingElseForAClock) {
  for (const char* text : {"", "N/A", "12:30", "1:2:3:4", "1:2:", "a:b:c", "1:-2:3"}) {
    EXPECT_EQ(std::nullopt, ParseClock(text)) << text;
  }
}

}  // namespace
}  // namespace host
