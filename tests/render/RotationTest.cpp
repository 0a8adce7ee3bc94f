#include <gtest/gtest.h>

#include <vector>

#include "render/Rotation.h"

namespace ferolin {

namespace {

/// A bottom-up bitmap with coordinates from the top left, y downward.
struct Bitmap {
  Bitmap(int w, int h)
      : width(w), height(h), pixels(static_cast<std::size_t>(RowLength16(w) * h), 0xFFFF) {}

  std::uint16_t& At(int x, int y) {
    return pixels[static_cast<std::size_t>((height - 1 - y) * RowLength16(width) + x)];
  }

  int width;
  int height;
  std::vector<std::uint16_t> pixels;
};

Bitmap Numbered(int width, int height) {
  Bitmap bitmap(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      bitmap.At(x, y) = static_cast<std::uint16_t>(y * width + x);
    }
  }
  return bitmap;
}

Bitmap Rotated(const Bitmap& source) {
  Bitmap target(source.height, source.width);
  RotateClockwise(source.pixels.data(), source.width, source.height, target.pixels.data());
  return target;
}

TEST(Rotation, TurnsTwoRowsOfFourIntoFourRowsOfTwo) {
  Bitmap target = Rotated(Numbered(4, 2));
  // 0 1 2 3      4 0
  // 4 5 6 7  ->  5 1
  //              6 2
  //              7 3
  const std::vector<std::vector<int>> expected = {{4, 0}, {5, 1}, {6, 2}, {7, 3}};
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 2; ++x) {
      EXPECT_EQ(expected[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)], target.At(x, y))
          << x << ", " << y;
    }
  }
}

TEST(Rotation, TakesMemoryRowsAndColumnsToColumnsAndRows) {
  // Row r, column c of memory goes to row width - 1 - c, column r: index (4 - 1 - c) * 2 + r.
  const std::vector<std::uint16_t> source = {10, 11, 12, 13, 20, 21, 22, 23};
  std::vector<std::uint16_t> target(8);
  RotateClockwise(source.data(), 4, 2, target.data());
  EXPECT_EQ((std::vector<std::uint16_t>{13, 23, 12, 22, 11, 21, 10, 20}), target);
}

class RotationOfSize : public testing::TestWithParam<std::pair<int, int>> {};

TEST_P(RotationOfSize, PutsEveryPixelInItsPlace) {
  const auto [width, height] = GetParam();
  Bitmap source = Numbered(width, height);
  Bitmap target = Rotated(source);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      ASSERT_EQ(source.At(x, y), target.At(height - 1 - y, x)) << x << ", " << y;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, RotationOfSize,
                         testing::Values(std::pair(1, 1), std::pair(2, 1), std::pair(1, 2),
                                         std::pair(3, 5), std::pair(31, 33), std::pair(32, 64),
                                         std::pair(100, 66), std::pair(241, 77)));

TEST(Rotation, RowsFillWholeWords) {
  EXPECT_EQ(240, RowLength16(240));
  EXPECT_EQ(242, RowLength16(241));
  EXPECT_EQ(0, RowLength16(0));
}

}  // namespace

}  // namespace ferolin
