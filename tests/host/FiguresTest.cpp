#include <gtest/gtest.h>

#include "engine/Figures.h"

namespace host {
namespace {

TEST(Figures, AreReadFromStates) {
  EXPECT_EQ(12.5, ParseState("12.5"));
  EXPECT_EQ(123456.0, ParseState("123456"));
  EXPECT_EQ(1.5e6, ParseState("1.5e+06"));
  EXPECT_EQ(0.0, ParseState("0"));
  EXPECT_EQ(std::nullopt, ParseState("-9999"));
  EXPECT_EQ(std::nullopt, ParseState(""));
  EXPECT_EQ(std::nullopt, ParseState("12 km"));
}

TEST(Figures, AreBestTimes) {
  EXPECT_EQ((BestTime{100, 9.5}), ParseBestTime("100;9.5", 1));
  EXPECT_EQ((BestTime{402, 17.25}), ParseBestTime("402;17250", 1000));
  EXPECT_EQ((BestTime{100, std::nullopt}), ParseBestTime("100;-9999", 1));
  EXPECT_EQ((BestTime{402, std::nullopt}), ParseBestTime("402;0", 1000));
}

TEST(Figures, AreReadFromPairs) {
  const StatePair pair = ParseStatePair("15.4;3600");
  EXPECT_EQ(15.4, pair.first);
  EXPECT_EQ(3600, pair.second);
  EXPECT_EQ(0, ParseStatePair("100;-9999").second);
  EXPECT_EQ(0, ParseStatePair("").first);
  EXPECT_EQ(0, ParseStatePair("12").second);
}

TEST(Figures, AreAverages) {
  EXPECT_EQ(60.0, ParseAverage("30;1800"));
  EXPECT_EQ(0.0, ParseAverage("0;10"));
  EXPECT_EQ(std::nullopt, ParseAverage("0;0"));
}

}  // namespace
}  // namespace host
