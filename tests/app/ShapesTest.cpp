#include <gtest/gtest.h>

#include <array>

#include "drawing/Shapes.h"

namespace app {

namespace {

constexpr Color WHITE = 0xFFFFFF;
constexpr Color GREY = 0x808080;

class ShapesTest : public testing::Test {
 protected:
  static constexpr int SIZE = 16;

  ShapesTest() {
    bitmap.EnsureSize(SIZE, SIZE);
    shapes.FillRect({0, 0, SIZE, SIZE}, 0);
  }

  Color At(int x, int y) { return bitmap.GetRow(y)[x]; }

  PixelBitmap bitmap;
  Shapes shapes{bitmap};
};

TEST_F(ShapesTest, FillRectanglesUpToTheirEndsAndInsideTheBitmap) {
  shapes.FillRect({-5, 3, 4, 6}, WHITE);
  EXPECT_EQ(0U, At(0, 2));
  EXPECT_EQ(WHITE, At(0, 3));
  EXPECT_EQ(WHITE, At(3, 5));
  EXPECT_EQ(0U, At(4, 5));
  EXPECT_EQ(0U, At(3, 6));
  shapes.FillRect({14, 14, 100, 100}, WHITE);
  EXPECT_EQ(WHITE, At(15, 15));
}

TEST_F(ShapesTest, LeaveTheRestOfABitmapAsItIs) {
  shapes.FillRoundRect({2, 2, 10, 10}, 4, WHITE);
  for (int i = 0; i < SIZE; ++i) {
    EXPECT_EQ(0U, At(i, 1));
    EXPECT_EQ(0U, At(i, 10));
    EXPECT_EQ(0U, At(1, i));
    EXPECT_EQ(0U, At(10, i));
  }
}

// The centre of the corner pixel of a circle of radius 4 lies 3.5 pixels from the middle each way:
// 4.95 pixels. That is more than half a pixel outside. Its neighbour lies (2.5, 3.5), 4.30 pixels:
// in 1/16, 68 of 64 + 8, which covers 4 / 16.
TEST_F(ShapesTest, SmoothTheCornersOfRoundRectangles) {
  shapes.FillRoundRect({0, 0, 8, 8}, 4, 0xF0F0F0);
  EXPECT_EQ(0U, At(0, 0));
  EXPECT_EQ(0x3C3C3CU, At(1, 0));
  EXPECT_EQ(0xF0F0F0U, At(3, 3));
}

TEST_F(ShapesTest, RoundAllFourCornersAlike) {
  shapes.FillRoundRect({1, 2, 13, 11}, 4, WHITE);
  for (int y = 2; y < 11; ++y) {
    for (int x = 1; x < 13; ++x) {
      EXPECT_EQ(At(x, y), At(13 - x, y)) << x << ", " << y;
      EXPECT_EQ(At(x, y), At(x, 12 - y)) << x << ", " << y;
    }
  }
}

TEST_F(ShapesTest, FrameWithABorderOfItsOwnColour) {
  shapes.DrawFrame({2, 2, 12, 12}, 0, 2, WHITE, GREY);
  EXPECT_EQ(WHITE, At(2, 7));
  EXPECT_EQ(WHITE, At(3, 7));
  EXPECT_EQ(GREY, At(4, 7));
  EXPECT_EQ(GREY, At(9, 7));
  EXPECT_EQ(WHITE, At(10, 7));
}

// A line of two pixels along the edge between rows 7 and 8 covers both rows wholly.
TEST_F(ShapesTest, DrawLinesAsWideAsTheyShallBe) {
  const std::array<FinePoint, 2> line = {{{4 * FINE, 8 * FINE}, {12 * FINE, 8 * FINE}}};
  shapes.DrawLines(line, 2 * FINE, WHITE);
  EXPECT_EQ(0U, At(8, 6));
  EXPECT_EQ(WHITE, At(8, 7));
  EXPECT_EQ(WHITE, At(8, 8));
  EXPECT_EQ(0U, At(8, 9));
  EXPECT_EQ(0U, At(2, 7));
  EXPECT_EQ(0U, At(13, 7));
}

TEST_F(ShapesTest, DrawALineOfOnePointAsADot) {
  const std::array<FinePoint, 2> dot = {{{8 * FINE, 8 * FINE}, {8 * FINE, 8 * FINE}}};
  shapes.DrawLines(dot, 4 * FINE, WHITE);
  EXPECT_EQ(WHITE, At(7, 7));
  EXPECT_EQ(WHITE, At(8, 8));
  EXPECT_EQ(0U, At(8, 11));
  EXPECT_EQ(0U, At(4, 8));
}

TEST_F(ShapesTest, DrawNothingOutsideOfTheBitmap) {
  const std::array<FinePoint, 2> line = {{{-40 * FINE, 8 * FINE}, {60 * FINE, 8 * FINE}}};
  shapes.DrawLines(line, 2 * FINE, WHITE);
  EXPECT_EQ(WHITE, At(0, 7));
  EXPECT_EQ(WHITE, At(15, 8));
}

TEST_F(ShapesTest, DrawNothingWithoutABitmap) {
  PixelBitmap empty;
  Shapes none(empty);
  none.FillRoundRect({0, 0, 8, 8}, 4, WHITE);
  EXPECT_EQ(0, empty.GetWidth());
}

}  // namespace

}  // namespace app
