#include <gtest/gtest.h>

#include "Section.h"

namespace {

/// Red pixel left of a blue one.
class Blits : public testing::Test {
 protected:
  Blits() {
    SetPixel(source.dc, 0, 0, RED);
    SetPixel(source.dc, 1, 0, BLUE);
  }

  Section source{2, -1};
  Section target{4, -2};
};

TEST_F(Blits, Copy) {
  EXPECT_TRUE(BitBlt(target.dc, 1, 1, 2, 1, source.dc, 0, 0, SRCCOPY));
  EXPECT_EQ(RED, target.At(1, 1));
  EXPECT_EQ(BLUE, target.At(2, 1));
  EXPECT_EQ(0u, target.At(1, 0));
}

TEST_F(Blits, Invert) {
  EXPECT_TRUE(BitBlt(target.dc, 0, 0, 2, 1, source.dc, 0, 0, NOTSRCCOPY));
  EXPECT_EQ(RGB(0, 255, 255), target.At(0, 0));
  EXPECT_EQ(RGB(255, 255, 0), target.At(1, 0));
}

/// The row is longer than what a processor converts at once, and not a multiple of it.
TEST_F(Blits, WidenEveryColour) {
  constexpr int COLOURS = 1 << 15;
  Section narrow(COLOURS + 5, -1, 16);
  Section wide(COLOURS + 5, -1);
  for (int x = 0; x < COLOURS + 5; ++x) {
    narrow.Words()[x] = static_cast<std::uint16_t>(x % COLOURS);
  }
  BitBlt(wide.dc, 0, 0, COLOURS + 5, 1, narrow.dc, 0, 0, SRCCOPY);
  for (unsigned x = 0; x < COLOURS + 5; ++x) {
    const unsigned red = x / 1024 % 32;
    const unsigned green = x / 32 % 32;
    const unsigned blue = x % 32;
    // The upper three of the five bits follow them once more.
    ASSERT_EQ((red * 8 + red / 4) << 16 | (green * 8 + green / 4) << 8 | (blue * 8 + blue / 4),
              wide.Longs()[x] & 0xFFFFFF)
        << x;
  }
}

TEST_F(Blits, DoubleEveryPixel) {
  EXPECT_TRUE(StretchBlt(target.dc, 0, 0, 4, 2, source.dc, 0, 0, 2, 1, SRCCOPY));
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 4; ++x) {
      EXPECT_EQ(x < 2 ? RED : BLUE, target.At(x, y));
    }
  }
}

TEST_F(Blits, NeedBothContexts) {
  EXPECT_FALSE(BitBlt(nullptr, 0, 0, 1, 1, source.dc, 0, 0, SRCCOPY));
  EXPECT_FALSE(BitBlt(target.dc, 0, 0, 1, 1, nullptr, 0, 0, SRCCOPY));
}

TEST_F(Blits, BlendByConstantAlpha) {
  SetPixel(target.dc, 0, 0, BLUE);
  EXPECT_TRUE(AlphaBlend(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 1, 1, {AC_SRC_OVER, 0, 192, 0}));
  // 255 * 192 / 255 and 255 * 63 / 255.
  EXPECT_EQ(RGB(192, 0, 63), target.At(0, 0));
}

TEST_F(Blits, BlendByAlphaOfEachPixel) {
  const BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  source.Longs()[0] = 0xFF102030;
  source.Longs()[1] = 0x80400000;
  SetPixel(target.dc, 1, 0, RGB(0, 0, 255));
  EXPECT_TRUE(AlphaBlend(target.dc, 0, 0, 2, 1, source.dc, 0, 0, 2, 1, blend));
  EXPECT_EQ(RGB(0x10, 0x20, 0x30), target.At(0, 0));
  // Of the blue below, (255 - 128) / 255 stay.
  EXPECT_EQ(RGB(0x40, 0, 127), target.At(1, 0));
}

TEST_F(Blits, BlendOnlyFromInsideTheSource) {
  const BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, 0};
  EXPECT_FALSE(AlphaBlend(target.dc, 0, 0, 2, 1, source.dc, 1, 0, 2, 1, blend));
}

}  // namespace
