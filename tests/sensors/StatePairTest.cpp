#include <gtest/gtest.h>

#include "sensors/StatePair.h"

namespace ferolin {
namespace {

void ExpectHalves(const char* text, const char* first, const char* second) {
  const StatePair pair(text);
  EXPECT_EQ(first, pair.first) << text;
  EXPECT_EQ(second, pair.second) << text;
}

TEST(StatePairTest, TextIsCutAtTheFirstSemicolon) {
  ExpectHalves("100;9.5", "100", "9.5");
  ExpectHalves("1;2;3", "1", "2;3");
}

TEST(StatePairTest, HalvesMayBeEmpty) {
  ExpectHalves(";9.5", "", "9.5");
  ExpectHalves("100;", "100", "");
  ExpectHalves(";", "", "");
}

TEST(StatePairTest, WithoutASemicolonTheSecondHalfIsEmpty) {
  ExpectHalves("100", "100", "");
  ExpectHalves("", "", "");
}

}  // namespace
}  // namespace ferolin
