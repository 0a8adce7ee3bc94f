#include <gtest/gtest.h>

#include "base/Suggestion.h"

namespace host {
namespace {

const std::vector<std::string> OPTIONS = {"port", "mirror", "fullscreen", "baud", "raw", "rate"};

TEST(Suggestion, FindsAWordWithOneWrongLetter) {
  EXPECT_EQ(FindSimilar("mirrow", OPTIONS), "mirror");        // replaced
  EXPECT_EQ(FindSimilar("miror", OPTIONS), "mirror");         // left out
  EXPECT_EQ(FindSimilar("mirrror", OPTIONS), "mirror");       // added
  EXPECT_EQ(FindSimilar("mirorr", OPTIONS), "mirror");        // swapped with its neighbour
  EXPECT_EQ(FindSimilar("prot", OPTIONS), "port");            // swapped in a short word
  EXPECT_EQ(FindSimilar("fulscren", OPTIONS), "fullscreen");  // two of ten
}

TEST(Suggestion, FindsAWordThatIsCutShortOrContinued) {
  EXPECT_EQ(FindSimilar("full", OPTIONS), "fullscreen");
  EXPECT_EQ(FindSimilar("baudrate", OPTIONS), "baud");
  EXPECT_EQ(FindSimilar("fu", OPTIONS), std::nullopt);
}

TEST(Suggestion, DoesNotCareAboutCase) {
  EXPECT_EQ(FindSimilar("MIRROR", OPTIONS), "mirror");
  EXPECT_EQ(FindSimilar("speed", {"Speedometer", "Speed"}), "Speed");
}

TEST(Suggestion, PrefersTheCloserWord) {
  EXPECT_EQ(FindSimilar("ratee", OPTIONS), "rate");
  EXPECT_EQ(FindSimilar("rat", {"raw", "rat"}), "rat");
}

TEST(Suggestion, FindsNothingSimilarToAnotherWord) {
  EXPECT_EQ(FindSimilar("bogus", OPTIONS), std::nullopt);
  EXPECT_EQ(FindSimilar("", OPTIONS), std::nullopt);
  EXPECT_EQ(FindSimilar("mirror", {}), std::nullopt);
  // Two of six letters are as many as may be wrong, three are too many.
  EXPECT_EQ(FindSimilar("morrow", OPTIONS), "mirror");
  EXPECT_EQ(FindSimilar("morrew", OPTIONS), std::nullopt);
}

TEST(Suggestion, AsksWhatWasMeant) {
  EXPECT_EQ(DidYouMean("ful", OPTIONS), "; did you mean fullscreen?");
  EXPECT_EQ(DidYouMean("bogus", OPTIONS), "");
}

}  // namespace
}  // namespace host
