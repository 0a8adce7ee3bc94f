// Ellipses so narrow that their curve does not reach the ends. What Windows does there changes from
// run to run.

#include <gtest/gtest.h>

#include "Section.h"

namespace {

TEST(NarrowEllipses, LeaveTheirEndsEmpty) {
  const Section section(5, -10);
  SelectObject(section.dc, GetStockObject(WHITE_PEN));
  Ellipse(section.dc, 1, 1, 4, 9);
  // Three wide and eight high: the curve closes one row from either end.
  for (int y = 0; y < 10; ++y) {
    EXPECT_EQ(y >= 2 && y <= 7 ? WHITE : 0, section.At(2, y)) << y;
    EXPECT_EQ(y >= 3 && y <= 6 ? WHITE : 0, section.At(1, y)) << y;
    EXPECT_EQ(y >= 3 && y <= 6 ? WHITE : 0, section.At(3, y)) << y;
  }
}

}  // namespace
