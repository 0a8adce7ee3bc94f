#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "widgets/path/PathPicture.h"

namespace ferolin {

namespace {

constexpr SIZE SIZE_OF_PICTURE = {11, 7};  // rows are padded
constexpr COLORREF BACKGROUND = RGB(0, 0, 128);
constexpr COLORREF LIT = RGB(255, 255, 0);

using Pixels = std::set<std::pair<LONG, LONG>>;

class PathPictureTest : public testing::Test {
 protected:
  PathPictureTest() { EXPECT_TRUE(picture.Clear(nullptr, SIZE_OF_PICTURE, BACKGROUND, LIT)); }

  /// What is lit, of which the context must have the colour.
  Pixels GetLit() {
    Pixels pixels;
    for (LONG y = 0; y < SIZE_OF_PICTURE.cy; ++y) {
      for (LONG x = 0; x < SIZE_OF_PICTURE.cx; ++x) {
        if (picture.IsLit(x, y)) {
          pixels.emplace(x, y);
        }
        const COLORREF color = GetPixel(picture.GetDC(), x, y);
        EXPECT_EQ(picture.IsLit(x, y), GetRValue(color) > 200) << x << ' ' << y;
        EXPECT_EQ(!picture.IsLit(x, y), GetBValue(color) > 100) << x << ' ' << y;
      }
    }
    return pixels;
  }

  PathPicture picture;
};

TEST_F(PathPictureTest, IsDarkAtFirst) {
  EXPECT_TRUE(picture.Exists());
  EXPECT_EQ(Pixels(), GetLit());
}

TEST_F(PathPictureTest, LightsPixels) {
  picture.Light(0, 0);
  picture.Light(10, 0);
  picture.Light(3, 6);
  EXPECT_EQ(Pixels({{0, 0}, {10, 0}, {3, 6}}), GetLit());
}

TEST_F(PathPictureTest, HasThePenForLines) {
  const POINT line[] = {{2, 1}, {5, 1}};
  Polyline(picture.GetDC(), line, 2);
  EXPECT_EQ(Pixels({{2, 1}, {3, 1}, {4, 1}}), GetLit());
}

TEST_F(PathPictureTest, TakesOtherColours) {
  picture.Light(3, 3);
  picture.Clear(nullptr, SIZE_OF_PICTURE, BACKGROUND, RGB(255, 0, 0));
  EXPECT_EQ(Pixels(), GetLit());
  const POINT line[] = {{2, 1}, {3, 1}};
  Polyline(picture.GetDC(), line, 2);
  EXPECT_TRUE(picture.IsLit(2, 1));
  EXPECT_EQ(RGB(255, 0, 0), GetPixel(picture.GetDC(), 2, 1));
}

TEST_F(PathPictureTest, TakesAnotherSize) {
  picture.Light(3, 3);
  EXPECT_TRUE(picture.Clear(nullptr, {300, 200}, BACKGROUND, LIT));
  EXPECT_FALSE(picture.IsLit(3, 3));
  picture.Light(299, 199);
  EXPECT_TRUE(picture.IsLit(299, 199));
}

TEST_F(PathPictureTest, ClearsAllAroundAPart) {
  for (const LONG x : {3L, 4L, 5L}) {
    picture.Light(x, 2);
    picture.Light(x, 3);
  }
  picture.ClearOutside({4, 3, 6, 7});
  EXPECT_EQ(Pixels({{4, 3}, {5, 3}}), GetLit());
}

TEST_F(PathPictureTest, MovesAllWays) {
  for (const LONG right : {-3L, 0L, 3L}) {
    for (const LONG down : {-2L, 0L, 2L}) {
      picture.Clear(nullptr, SIZE_OF_PICTURE, BACKGROUND, LIT);
      picture.Light(4, 3);
      picture.Light(5, 4);
      picture.Move(right, down);
      EXPECT_TRUE(picture.IsLit(4 + right, 3 + down));
      EXPECT_TRUE(picture.IsLit(5 + right, 4 + down));
      EXPECT_FALSE(picture.IsLit(5 + right, 3 + down));
    }
  }
}

TEST_F(PathPictureTest, LosesWhatIsMovedOut) {
  picture.Light(0, 0);
  picture.Light(10, 6);
  picture.Move(1, 1);
  EXPECT_TRUE(picture.IsLit(1, 1));
  picture.Move(-2, -2);
  picture.ClearOutside({0, 0, 9, 5});
  EXPECT_EQ(Pixels(), GetLit());
}

TEST_F(PathPictureTest, IsNoneWithoutASize) {
  EXPECT_FALSE(picture.Clear(nullptr, {0, 0}, BACKGROUND, LIT));
  EXPECT_FALSE(picture.Exists());
}

}  // namespace

}  // namespace ferolin
