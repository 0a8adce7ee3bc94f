#include <gtest/gtest.h>

#include "widgets/PathDoubts.h"

namespace ferolin {

namespace {

TEST(PathDoubtsTest, TouchNothingAtFirst) {
  const PathDoubts doubts({10, 20, 810, 500});
  EXPECT_FALSE(doubts.MayTouch({10, 20, 809, 499}));
}

TEST(PathDoubtsTest, AreFoundToThePixelInSmallRectangles) {
  PathDoubts doubts({10, 20, 810, 500});
  doubts.Add({400, 300});
  EXPECT_TRUE(doubts.MayTouch({400, 300, 400, 300}));
  EXPECT_TRUE(doubts.MayTouch({390, 290, 400, 300}));
  EXPECT_TRUE(doubts.MayTouch({400, 300, 410, 310}));
  EXPECT_FALSE(doubts.MayTouch({401, 290, 410, 310}));
  EXPECT_FALSE(doubts.MayTouch({390, 290, 399, 310}));
  EXPECT_FALSE(doubts.MayTouch({390, 290, 410, 299}));
  EXPECT_FALSE(doubts.MayTouch({390, 301, 410, 310}));
}

TEST(PathDoubtsTest, AreFoundInLargeRectangles) {
  PathDoubts doubts({10, 20, 810, 500});
  doubts.Add({400, 300});
  EXPECT_TRUE(doubts.MayTouch({10, 20, 809, 499}));
  EXPECT_TRUE(doubts.MayTouch({-1000, -1000, 5000, 5000}));
  EXPECT_FALSE(doubts.MayTouch({10, 20, 300, 499}));
  EXPECT_FALSE(doubts.MayTouch({10, 400, 809, 499}));
}

TEST(PathDoubtsTest, AreFoundInEveryCornerOfTheArea) {
  for (const POINT corner : {POINT{10, 20}, POINT{1929, 20}, POINT{10, 1099}, POINT{1929, 1099}}) {
    PathDoubts doubts({10, 20, 1930, 1100});
    doubts.Add(corner);
    EXPECT_TRUE(doubts.MayTouch({corner.x - 5, corner.y - 5, corner.x + 5, corner.y + 5}));
    EXPECT_FALSE(doubts.MayTouch({500, 500, 510, 510}));
  }
}

TEST(PathDoubtsTest, DoNotLieOutsideOfTheArea) {
  PathDoubts doubts({10, 20, 810, 500});
  doubts.Add({10, 20});
  EXPECT_FALSE(doubts.MayTouch({0, 0, 9, 499}));
  EXPECT_FALSE(doubts.MayTouch({0, 0, 809, 19}));
  EXPECT_FALSE(doubts.MayTouch({810, 0, 900, 499}));
  EXPECT_FALSE(doubts.MayTouch({0, 500, 809, 600}));
}

}  // namespace

}  // namespace ferolin
