#include <gtest/gtest.h>

#include "base/Suggestion.h"

namespace host {
namespace {

const std::vector<std::string> OPTIONS = {"port", "mirror", "fullscreen", "baud", "raw", "rate"};

TEST(Suggestion, FindsAWordWithOneWrongLetter) {
  EXPECT_EQ("mirror", FindSimilar("mirrow", OPTIONS));        // replaced
  EXPECT_EQ("mirror", FindSimilar("miror", OPTIONS));         // left out
  EXPECT_EQ("mirror", FindSimilar("mirrror", OPTIONS));       // added
  EXPECT_EQ("mirror", FindSimilar("mirorr", OPTIONS));        // swapped with its neighbour
  EXPECT_EQ("port", FindSimilar("prot", OPTIONS));            // swapped in a short word
  EXPECT_EQ("fullscreen", FindSimilar("fulscren", OPTIONS));  // two of ten
}

TEST(Suggestion, FindsAWordThatIsCutShortOrContinued) {
  EXPECT_EQ("fullscreen", FindSimilar("full", OPTIONS));
  EXPECT_EQ("baud", FindSimilar("baudrate", OPTIONS));
  EXPECT_EQ(std::nullopt, FindSimilar("fu", OPTIONS));
}

TEST(Suggestion, DoesNotCareAboutCase) {
  EXPECT_EQ("mirror", FindSimilar("MIRROR", OPTIONS));
  EXPECT_EQ("Speed", FindSimilar("speed", {"Speedometer", "Speed"}));
}

TEST(Suggestion, PrefersTheCloserWord) {
  EXPECT_EQ("rate", FindSimilar("ratee", OPTIONS));
  EXPECT_EQ("rat", FindSimilar("rat", {"raw", "rat"}));
}

TEST(Suggestion, FindsNothingSimilarToAnotherWord) {
  EXPECT_EQ(std::nullopt, FindSimilar("bogus", OPTIONS));
  EXPECT_EQ(std::nullopt, FindSimilar("", OPTIONS));
  EXPECT_EQ(std::nullopt, FindSimilar("mirror", {}));
  // Two of six letters are as many as may be wrong, three are too many.
  EXPECT_EQ("mirror", FindSimilar("morrow", OPTIONS));
  EXPECT_EQ(std::nullopt, FindSimilar("morrew", OPTIONS));
}

TEST(Suggestion, AsksWhatWasMeant) {
  EXPECT_EQ("; did you mean fullscreen?", DidYouMean("ful", OPTIONS));
  EXPECT_EQ("", DidYouMean("bogus", OPTIONS));
}

}  // namespace
}  // namespace host
