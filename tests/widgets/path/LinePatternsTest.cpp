#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "widgets/path/LinePatterns.h"

namespace ferolin {

namespace {

using Pixels = std::set<std::pair<int, int>>;

class LinePatternsTest : public testing::Test {
 protected:
  LinePatternsTest() { EXPECT_TRUE(patterns.Prepare(nullptr)); }

  Pixels PixelsTo(LONG right, LONG down) {
    Pixels pixels;
    for (const LinePatterns::Pixel pixel : patterns.PixelsTo(right, down)) {
      EXPECT_TRUE(pixels.emplace(pixel.right, pixel.down).second);
    }
    return pixels;
  }

  LinePatterns patterns;
};

TEST_F(LinePatternsTest, LeaveOutTheLastPixel) {
  EXPECT_EQ(Pixels({{0, 0}}), PixelsTo(1, 0));
  EXPECT_EQ(Pixels({{0, 0}, {1, 0}, {2, 0}}), PixelsTo(3, 0));
  EXPECT_EQ(Pixels({{0, 0}, {0, -1}}), PixelsTo(0, -2));
  EXPECT_EQ(Pixels({{0, 0}, {-1, 1}, {-2, 2}}), PixelsTo(-3, 3));
}

TEST_F(LinePatternsTest, FollowTheLine) {
  EXPECT_EQ(Pixels({{0, 0}, {1, 0}, {2, 1}}), PixelsTo(3, 1));
  EXPECT_EQ(Pixels({{0, 0}, {0, -1}, {-1, -2}}), PixelsTo(-1, -3));
  EXPECT_EQ(Pixels({{0, 0}, {-1, 0}, {-2, 1}, {-3, 1}, {-4, 1}, {-5, 1}, {-6, 2}}),
            PixelsTo(-7, 2));
}

TEST_F(LinePatternsTest, AreThoseOfLinesDrawnAnywhere) {
  constexpr SIZE SIZE_OF_PICTURE = {40, 40};
  constexpr POINT START = {23, 18};
  constexpr LONG FARTHEST = LinePatterns::FARTHEST;
  PathPicture picture;
  for (LONG down = -FARTHEST; down <= FARTHEST; ++down) {
    for (LONG right = -FARTHEST; right <= FARTHEST; ++right) {
      if (right == 0 && down == 0) {
        continue;
      }
      picture.Clear(nullptr, SIZE_OF_PICTURE, RGB(255, 255, 255), RGB(0, 0, 0));
      const POINT line[] = {START, {START.x + right, START.y + down}};
      Polyline(picture.GetDC(), line, 2);
      picture.FinishDrawing();
      Pixels lit;
      for (LONG y = 0; y < SIZE_OF_PICTURE.cy; ++y) {
        for (LONG x = 0; x < SIZE_OF_PICTURE.cx; ++x) {
          if (picture.IsLit(x, y)) {
            lit.emplace(x - START.x, y - START.y);
          }
        }
      }
      EXPECT_EQ(lit, PixelsTo(right, down)) << right << ' ' << down;
      EXPECT_EQ(lit, PixelsTo(right, down)) << "the second time";
    }
  }
}

TEST_F(LinePatternsTest, CoverShortLinesOnly) {
  EXPECT_TRUE(LinePatterns::Cover(7, -7));
  EXPECT_TRUE(LinePatterns::Cover(-7, 7));
  EXPECT_FALSE(LinePatterns::Cover(8, 0));
  EXPECT_FALSE(LinePatterns::Cover(-8, 0));
  EXPECT_FALSE(LinePatterns::Cover(0, 8));
  EXPECT_FALSE(LinePatterns::Cover(0, -8));
}

}  // namespace

}  // namespace ferolin
