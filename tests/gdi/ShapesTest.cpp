#include <gtest/gtest.h>

#include "Section.h"

namespace {

/// 8 x 8 pixels, drawn on with a thin red pen and a blue brush.
class Shapes : public testing::Test {
 protected:
  Shapes() {
    oldPen = SelectObject(section.dc, pen);
    oldBrush = SelectObject(section.dc, brush);
  }
  ~Shapes() override {
    SelectObject(section.dc, oldPen);
    SelectObject(section.dc, oldBrush);
    DeleteObject(pen);
    DeleteObject(brush);
  }

  int Count(COLORREF color) const {
    int count = 0;
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 8; ++x) {
        count += section.At(x, y) == color;
      }
    }
    return count;
  }

  Section section{8, -8};
  HPEN pen = CreatePen(PS_SOLID, 1, RED);
  HBRUSH brush = CreateSolidBrush(BLUE);
  HGDIOBJ oldPen;
  HGDIOBJ oldBrush;
};

TEST_F(Shapes, LinesLeaveOutTheirLastPixel) {
  MoveToEx(section.dc, 1, 2, nullptr);
  LineTo(section.dc, 5, 2);
  EXPECT_EQ(4, Count(RED));
  EXPECT_EQ(RED, section.At(1, 2));
  EXPECT_EQ(RED, section.At(4, 2));
  EXPECT_EQ(0u, section.At(5, 2));
}

TEST_F(Shapes, DiagonalsTakeOnePixelAStep) {
  MoveToEx(section.dc, 6, 6, nullptr);
  LineTo(section.dc, 2, 2);
  EXPECT_EQ(4, Count(RED));
  for (int i = 3; i <= 6; ++i) {
    EXPECT_EQ(RED, section.At(i, i));
  }
}

TEST_F(Shapes, LinesToNeighboursAreTheirFirstPixel) {
  for (int y = -1; y <= 1; ++y) {
    for (int x = -1; x <= 1; ++x) {
      SetPixel(section.dc, 4, 4, 0);
      const POINT points[] = {{4, 4}, {4 + x, 4 + y}};
      Polyline(section.dc, points, 2);
      EXPECT_EQ(x == 0 && y == 0 ? 0 : 1, Count(RED)) << x << ' ' << y;
      EXPECT_EQ(x == 0 && y == 0 ? 0u : RED, section.At(4, 4)) << x << ' ' << y;
    }
  }
}

TEST_F(Shapes, LinesToNeighboursStayInsideTheClipRegion) {
  const HRGN region = CreateRectRgn(2, 2, 5, 5);
  SelectClipRgn(section.dc, region);
  const POINT points[] = {{1, 2}, {2, 1}, {3, 2}, {4, 3}, {5, 4}, {4, 5}, {3, 4}};
  Polyline(section.dc, points, 7);
  SelectClipRgn(section.dc, nullptr);
  DeleteObject(region);
  EXPECT_EQ(2, Count(RED));
  EXPECT_EQ(RED, section.At(3, 2));
  EXPECT_EQ(RED, section.At(4, 3));
}

TEST_F(Shapes, PolylinesNeedTwoPoints) {
  const POINT points[] = {{1, 1}, {4, 1}, {4, 4}};
  EXPECT_FALSE(Polyline(section.dc, points, 1));
  EXPECT_EQ(0, Count(RED));
  EXPECT_TRUE(Polyline(section.dc, points, 3));
  // (1..3, 1) and (4, 1..3).
  EXPECT_EQ(6, Count(RED));
  EXPECT_EQ(RED, section.At(4, 3));
  EXPECT_EQ(0u, section.At(4, 4));
}

TEST_F(Shapes, RectanglesLeaveOutTheirRightAndBottom) {
  Rectangle(section.dc, 1, 1, 5, 4);
  // 4 x 3 pixels, of which 2 x 1 are inside the outline.
  EXPECT_EQ(10, Count(RED));
  EXPECT_EQ(2, Count(BLUE));
  EXPECT_EQ(RED, section.At(4, 3));
  EXPECT_EQ(0u, section.At(5, 3));
  EXPECT_EQ(0u, section.At(4, 4));
}

TEST_F(Shapes, NullBrushLeavesTheInsideAlone) {
  SelectObject(section.dc, GetStockObject(NULL_BRUSH));
  Rectangle(section.dc, 1, 1, 5, 4);
  EXPECT_EQ(10, Count(RED));
  EXPECT_EQ(0u, section.At(2, 2));
}

TEST_F(Shapes, FillRectLeavesOutRightAndBottom) {
  const RECT rect = {2, 3, 5, 5};
  FillRect(section.dc, &rect, brush);
  EXPECT_EQ(6, Count(BLUE));
  EXPECT_EQ(BLUE, section.At(2, 3));
  EXPECT_EQ(BLUE, section.At(4, 4));
}

TEST_F(Shapes, ClippingHoldsUntilTakenAway) {
  const HRGN region = CreateRectRgn(0, 0, 2, 2);
  EXPECT_EQ(SIMPLEREGION, SelectClipRgn(section.dc, region));
  DeleteObject(region);
  const RECT all = {0, 0, 8, 8};
  FillRect(section.dc, &all, brush);
  EXPECT_EQ(4, Count(BLUE));
  SelectClipRgn(section.dc, nullptr);
  FillRect(section.dc, &all, brush);
  EXPECT_EQ(64, Count(BLUE));
}

TEST(Pixels, KeepFiveBitsAColourIn16Bits) {
  const Section small(4, 4, 16);
  // 0x12, 0x34, 0x56 keep 2, 6, 10 of 31, widened to 0x10, 0x31, 0x52.
  EXPECT_EQ(RGB(0x10, 0x31, 0x52), SetPixel(small.dc, 0, 0, RGB(0x12, 0x34, 0x56)));
  EXPECT_EQ(RGB(0x10, 0x31, 0x52), small.At(0, 0));
  // The top row is the last of four in memory.
  EXPECT_EQ(2 << 10 | 6 << 5 | 10, small.Words()[3 * 4]);
}

TEST(Pixels, NamedByTheStandardPalette) {
  const Section large(1, -1);
  // Entries 7 and 19 of 0 to 19.
  EXPECT_EQ(RGB(0xC0, 0xC0, 0xC0), SetPixel(large.dc, 0, 0, 0x01000007));
  EXPECT_EQ(RGB(255, 255, 255), SetPixel(large.dc, 0, 0, 0x01000013));
  EXPECT_EQ(RGB(0, 0, 0), SetPixel(large.dc, 0, 0, 0x01000014));
  EXPECT_EQ(RGB(0, 0, 0), SetPixel(large.dc, 0, 0, 0xFFFFFFFF));
}

TEST(Pixels, TakeOtherHighBytesForNothing) {
  const Section large(1, -1);
  EXPECT_EQ(0x123456u, SetPixel(large.dc, 0, 0, 0x02123456));
  EXPECT_EQ(0x123456u, large.At(0, 0));
}

TEST(Pixels, AreBlackWhereATableIsMissing) {
  const Section large(1, -1);
  EXPECT_EQ(0u, SetPixel(large.dc, 0, 0, 0x10FF0001));
}

TEST(Pixels, LieFromTheTopDownWhenTheHeightIsNegative) {
  const Section large(3, -2);
  SetPixel(large.dc, 1, 0, RGB(0x12, 0x34, 0x56));
  EXPECT_EQ(0x123456u, large.Longs()[1]);
  EXPECT_EQ(CLR_INVALID, large.At(3, 0));
}

}  // namespace
