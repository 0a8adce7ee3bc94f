#include <gtest/gtest.h>

#include "widgets/satellites/SignalBar.h"

namespace ferolin {

namespace {

void ExpectRect(LONG left, LONG top, LONG right, LONG bottom, const RECT& rect) {
  EXPECT_EQ(left, rect.left);
  EXPECT_EQ(top, rect.top);
  EXPECT_EQ(right, rect.right);
  EXPECT_EQ(bottom, rect.bottom);
}

bool IsEmpty(const RECT& rect) {
  return rect.left >= rect.right || rect.top >= rect.bottom;
}

const SignalStrip ROWS = SignalStrip::Of({320, 240});
const SignalStrip COLUMNS = SignalStrip::Of({240, 320});

TEST(SignalStrip, LiesAtTheRightOfWideFrames) {
  EXPECT_TRUE(ROWS.hasRows);
  ExpectRect(250, 0, 320, 240, ROWS.rect);
}

TEST(SignalStrip, LiesAtTheBottomOfHighFrames) {
  EXPECT_FALSE(COLUMNS.hasRows);
  ExpectRect(0, 250, 240, 320, COLUMNS.rect);
}

TEST(SignalStrip, LiesAtTheBottomOfSquareFrames) {
  EXPECT_FALSE(SignalStrip::Of({300, 300}).hasRows);
}

// Rows are 240 / 12 = 20 high; bars begin at 250 + 20 and have 50 to the strip's edge.

TEST(SignalBar, GrowsToTheRightInARow) {
  const SignalBar first(ROWS, 0, 50);
  ExpectRect(270, 1, 295, 16, first.bar);
  ExpectRect(270, 4, 292, 19, first.shadow);
  const SignalBar last(ROWS, 11, 33);
  ExpectRect(270, 221, 286, 236, last.bar);  // 50 * 33 / 100 = 16
  ExpectRect(270, 224, 283, 239, last.shadow);
}

// Columns are 240 / 12 = 20 wide; bars stand on 320 - 20 and have 50 to the strip's top.

TEST(SignalBar, GrowsUpInAColumn) {
  const SignalBar first(COLUMNS, 0, 50);
  ExpectRect(1, 275, 16, 300, first.bar);
  ExpectRect(4, 278, 19, 300, first.shadow);
  const SignalBar last(COLUMNS, 11, 33);
  ExpectRect(221, 284, 236, 300, last.bar);
  ExpectRect(224, 287, 239, 300, last.shadow);
}

TEST(SignalBar, CutsFractionsOfARow) {
  const SignalStrip strip = SignalStrip::Of({800, 470});  // 470 / 12 = 39
  ExpectRect(750, 1 + 11 * 39, 800, 1 + 12 * 39 - 2 - 3, SignalBar(strip, 11, 100).bar);
}

TEST(SignalBar, IsEmptyWithoutASignal) {
  for (const SignalStrip& strip : {ROWS, COLUMNS}) {
    const SignalBar place(strip, 3, 0);
    EXPECT_TRUE(IsEmpty(place.bar));
    EXPECT_TRUE(IsEmpty(place.shadow));
  }
}

TEST(SignalBar, EndsAtTheStripsEdgeAboveAHundred) {
  EXPECT_EQ(320, SignalBar(ROWS, 0, 101).bar.right);
  EXPECT_EQ(320, SignalBar(ROWS, 0, 2147483647).bar.right);
  EXPECT_EQ(250, SignalBar(COLUMNS, 0, 101).bar.top);
}

TEST(SignalBar, IsEmptyBelowZero) {
  EXPECT_TRUE(IsEmpty(SignalBar(ROWS, 0, -5).bar));
  EXPECT_TRUE(IsEmpty(SignalBar(COLUMNS, 0, -5).bar));
}

TEST(SignalBar, HasNoShadowWhenItIsShorterThanThat) {
  EXPECT_TRUE(IsEmpty(SignalBar(ROWS, 0, 6).shadow)) << "three pixels";
  EXPECT_FALSE(IsEmpty(SignalBar(ROWS, 0, 8).shadow)) << "four";
  EXPECT_TRUE(IsEmpty(SignalBar(COLUMNS, 0, 6).shadow));
  EXPECT_FALSE(IsEmpty(SignalBar(COLUMNS, 0, 8).shadow));
}

TEST(SignalBar, EndsTheNumberWhereTheRowsBarBegins) {
  const POINT corner = SignalBar(ROWS, 1, 50).LabelCorner({12, 13});
  EXPECT_EQ(258, corner.x);
  EXPECT_EQ(23, corner.y);  // the row runs from 21 to 39
}

TEST(SignalBar, CentresTheNumberBelowTheColumn) {
  const POINT corner = SignalBar(COLUMNS, 1, 50).LabelCorner({12, 13});
  EXPECT_EQ(24, corner.x);  // the column runs from 21 to 39
  EXPECT_EQ(303, corner.y);
}

// Columns of a frame of 176 x 220 are 14 wide, less than three figures.

TEST(SignalBar, PutsNumbersInTwoLinesInTurnBelowNarrowColumns) {
  const SignalStrip strip = SignalStrip::Of({176, 220});
  const POINT first = SignalBar(strip, 0, 50).LabelCorner({18, 13});
  EXPECT_EQ(0, first.x) << "the column's middle is 7, but the frame begins at 0";
  EXPECT_EQ(199, first.y) << "a pixel above the end of the bars, where figures have no ink";
  const POINT second = SignalBar(strip, 1, 50).LabelCorner({18, 13});
  EXPECT_EQ(12, second.x);  // the column runs from 15 to 27
  EXPECT_EQ(209, second.y);
  EXPECT_EQ(199, SignalBar(strip, 2, 50).LabelCorner({6, 13}).y) << "short numbers, too";
}

}  // namespace

}  // namespace ferolin
