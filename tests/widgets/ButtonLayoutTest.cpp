#include <gtest/gtest.h>

#include "widgets/ButtonLayout.h"

namespace ferolin {

namespace {

constexpr RECT PORTRAIT = {0, 0, 240, 320};
constexpr RECT LANDSCAPE = {0, 0, 320, 240};
constexpr SIZE BUTTON = {50, 50};

struct LayoutCase {
  const char* name;
  ButtonLayout layout;
  int index;
  RECT expected;
};

std::string NameOf(const testing::TestParamInfo<LayoutCase>& test) {
  return std::to_string(test.index);
}

class Layout : public testing::TestWithParam<LayoutCase> {};

TEST_P(Layout, PutsTheButtonThere) {
  const LayoutCase& param = GetParam();
  const RECT rect = param.layout.GetRect(param.index);
  EXPECT_EQ(param.expected.left, rect.left);
  EXPECT_EQ(param.expected.top, rect.top);
  EXPECT_EQ(param.expected.right, rect.right);
  EXPECT_EQ(param.expected.bottom, rect.bottom);
}

const ButtonLayout TOP = {BarSide::TOP, PORTRAIT, BUTTON};
const ButtonLayout BOTTOM = {BarSide::BOTTOM, PORTRAIT, BUTTON};
const ButtonLayout LEFT = {BarSide::LEFT, LANDSCAPE, BUTTON};
const ButtonLayout RIGHT = {BarSide::RIGHT, LANDSCAPE, BUTTON};

// 240 / 50 = 4 a line, 60 each, 5 to either side of a button.
INSTANTIATE_TEST_SUITE_P(
    Sides, Layout,
    testing::Values(LayoutCase{"top, first", TOP, 0, {5, 1, 55, 51}},
                    LayoutCase{"top, second", TOP, 1, {65, 1, 115, 51}},
                    LayoutCase{"top, third", TOP, 2, {125, 1, 175, 51}},
                    LayoutCase{"top, fourth", TOP, 3, {185, 1, 235, 51}},
                    LayoutCase{"top, next row", TOP, 4, {5, 52, 55, 102}},
                    LayoutCase{"top, third row", TOP, 9, {65, 103, 115, 153}},
                    LayoutCase{"bottom, first is the rightmost", BOTTOM, 0, {185, 269, 235, 319}},
                    LayoutCase{"bottom, last is the leftmost", BOTTOM, 3, {5, 269, 55, 319}},
                    LayoutCase{"bottom, next row", BOTTOM, 4, {185, 218, 235, 268}},
                    LayoutCase{"left, first is the lowest", LEFT, 0, {1, 185, 51, 235}},
                    LayoutCase{"left, fourth is the highest", LEFT, 3, {1, 5, 51, 55}},
                    LayoutCase{"left, next column", LEFT, 4, {52, 185, 102, 235}},
                    LayoutCase{"right, first is the lowest", RIGHT, 0, {269, 185, 319, 235}},
                    LayoutCase{"right, fourth is the highest", RIGHT, 3, {269, 5, 319, 55}},
                    LayoutCase{"right, next column", RIGHT, 5, {218, 125, 268, 175}}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    OddSizes, Layout,
    testing::Values(
        // 269 / 50 = 5 a line, 53 each, (53 - 50) / 2 = 1.
        LayoutCase{"top", {BarSide::TOP, {0, 0, 269, 320}, BUTTON}, 1, {54, 1, 104, 51}},
        LayoutCase{"bottom", {BarSide::BOTTOM, {0, 0, 269, 320}, BUTTON}, 1, {165, 269, 215, 319}},
        // A window narrower than a button: one a line; (40 - 50) / 2 = -5, (41 - 50) / 2 = -4.
        LayoutCase{"top", {BarSide::TOP, {0, 0, 40, 320}, BUTTON}, 0, {-5, 1, 45, 51}},
        LayoutCase{"top", {BarSide::TOP, {0, 0, 41, 320}, BUTTON}, 1, {-4, 52, 46, 102}},
        LayoutCase{"bottom", {BarSide::BOTTOM, {0, 0, 41, 320}, BUTTON}, 0, {-5, 269, 45, 319}},
        LayoutCase{"left", {BarSide::LEFT, {0, 0, 320, 41}, BUTTON}, 0, {1, -5, 51, 45}},
        // A client area that does not begin at the origin.
        LayoutCase{"top", {BarSide::TOP, {10, 20, 250, 340}, BUTTON}, 0, {15, 21, 65, 71}},
        LayoutCase{"right", {BarSide::RIGHT, {10, 20, 330, 260}, BUTTON}, 0, {279, 205, 329, 255}}),
    NameOf);

TEST(ButtonLayout, CountsTheEdgesOnAllSides) {
  EXPECT_TRUE(TOP.IsHit(0, 5, 1));
  EXPECT_TRUE(TOP.IsHit(0, 55, 51));
  EXPECT_FALSE(TOP.IsHit(0, 4, 1));
  EXPECT_FALSE(TOP.IsHit(0, 5, 0));
  EXPECT_FALSE(TOP.IsHit(0, 56, 51));
  EXPECT_FALSE(TOP.IsHit(0, 55, 52));
}

TEST(ButtonLayout, StandsButtonsWithoutSizeAside) {
  const ButtonLayout layout = {BarSide::TOP, PORTRAIT, {0, 0}};
  EXPECT_FALSE(layout.IsHit(0, 5, 5));
}

}  // namespace

}  // namespace ferolin
