// Curves, wide and dashed lines, as the real device draws them.

#include <gtest/gtest.h>

#include <string>

#include "Section.h"

namespace {

/// A canvas that prints itself: R for the red pen, B for the blue brush, a dot where nothing was
/// drawn.
class Sketch {
 public:
  Sketch(int sketchWidth, int sketchHeight, int penStyle = PS_SOLID, int penWidth = 1)
      : width(sketchWidth),
        height(sketchHeight),
        section(width, -height),
        pen(CreatePen(penStyle, penWidth, RED)),
        oldPen(SelectObject(section.dc, pen)),
        oldBrush(SelectObject(section.dc, brush)) {}
  ~Sketch() {
    SelectObject(section.dc, oldPen);
    SelectObject(section.dc, oldBrush);
    DeleteObject(pen);
    DeleteObject(brush);
  }
  Sketch(const Sketch&) = delete;
  Sketch& operator=(const Sketch&) = delete;

  HDC GetDC() const { return section.dc; }

  void DrawLine(int x1, int y1, int x2, int y2) const {
    MoveToEx(section.dc, x1, y1, nullptr);
    LineTo(section.dc, x2, y2);
  }

  std::string Print() const {
    std::string text;
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        const COLORREF color = section.At(x, y);
        text += color == RED ? 'R' : color == BLUE ? 'B' : color == 0 ? '.' : '?';
      }
      text += '\n';
    }
    return text;
  }

 private:
  const int width;
  const int height;
  Section section;
  HBRUSH brush = CreateSolidBrush(BLUE);
  HPEN pen;
  HGDIOBJ oldPen;
  HGDIOBJ oldBrush;
};

TEST(Sketches, CirclesEndBeforeTheirRightAndBottom) {
  const Sketch sketch(12, 12);
  Ellipse(sketch.GetDC(), 1, 1, 11, 11);
  EXPECT_EQ(
      "............\n"
      "....RRRR....\n"
      "...RBBBBR...\n"
      "..RBBBBBBR..\n"
      ".RBBBBBBBBR.\n"
      ".RBBBBBBBBR.\n"
      ".RBBBBBBBBR.\n"
      ".RBBBBBBBBR.\n"
      "..RBBBBBBR..\n"
      "...RBBBBR...\n"
      "....RRRR....\n"
      "............\n",
      sketch.Print());
}

TEST(Sketches, EllipsesMayBeWiderThanHigh) {
  const Sketch sketch(9, 7);
  Ellipse(sketch.GetDC(), 1, 1, 8, 6);
  EXPECT_EQ(
      ".........\n"
      "...RRR...\n"
      ".RRBBBRR.\n"
      ".RBBBBBR.\n"
      ".RRBBBRR.\n"
      "...RRR...\n"
      ".........\n",
      sketch.Print());
}

TEST(Sketches, SmallRoundedCornersLoseOnePixel) {
  const Sketch sketch(12, 8);
  RoundRect(sketch.GetDC(), 1, 1, 11, 7, 3, 3);
  EXPECT_EQ(
      "............\n"
      "..RRRRRRRR..\n"
      ".RBBBBBBBBR.\n"
      ".RBBBBBBBBR.\n"
      ".RBBBBBBBBR.\n"
      ".RBBBBBBBBR.\n"
      "..RRRRRRRR..\n"
      "............\n",
      sketch.Print());
}

TEST(Sketches, WideLinesHaveRoundEndsAroundBothPoints) {
  const Sketch sketch(14, 7, PS_SOLID, 3);
  sketch.DrawLine(3, 3, 10, 3);
  EXPECT_EQ(
      "..............\n"
      "..............\n"
      "...RRRRRRRR...\n"
      "..RRRRRRRRRR..\n"
      "...RRRRRRRR...\n"
      "..............\n"
      "..............\n",
      sketch.Print());
}

TEST(Sketches, WideLinesKeepTheirWidthOnTheDiagonal) {
  const Sketch sketch(14, 14, PS_SOLID, 3);
  sketch.DrawLine(3, 10, 10, 3);
  EXPECT_EQ(
      "..............\n"
      "..............\n"
      "..........R...\n"
      "........RRRR..\n"
      ".......RRRR...\n"
      "......RRRRRR..\n"
      ".....RRRRRR...\n"
      "....RRRRRR....\n"
      "...RRRRRR.....\n"
      "..RRRRRR......\n"
      "..RRRRR.......\n"
      "...RRR........\n"
      "..............\n"
      "..............\n",
      sketch.Print());
}

TEST(Sketches, DashesAreEighteenPixelsWithGapsOfSix) {
  const Sketch sketch(48, 1, PS_DASH);
  SetBkMode(sketch.GetDC(), TRANSPARENT);
  sketch.DrawLine(0, 0, 48, 0);
  EXPECT_EQ("RRRRRRRRRRRRRRRRRR......RRRRRRRRRRRRRRRRRR......\n", sketch.Print());
}

TEST(Sketches, LinesTakeTheSamePixelsBothWaysButForTheirEnds) {
  const Sketch there(10, 6);
  there.DrawLine(1, 1, 8, 4);
  EXPECT_EQ(
      "..........\n"
      ".RR.......\n"
      "...RR.....\n"
      ".....RR...\n"
      ".......R..\n"
      "..........\n",
      there.Print());
  const Sketch back(10, 6);
  back.DrawLine(8, 4, 1, 1);
  EXPECT_EQ(
      "..........\n"
      "..R.......\n"
      "...RR.....\n"
      ".....RR...\n"
      ".......RR.\n"
      "..........\n",
      back.Print());
}

TEST(Sketches, NegativeWidthsMirrorAndIncludeTheirStart) {
  const Section source(3, -2);
  SetPixel(source.dc, 0, 0, RED);
  SetPixel(source.dc, 2, 1, BLUE);
  const Sketch sketch(6, 4);
  StretchBlt(sketch.GetDC(), 5, 0, -6, 4, source.dc, 0, 0, 3, 2, SRCCOPY);
  EXPECT_EQ(
      "....RR\n"
      "....RR\n"
      "BB....\n"
      "BB....\n",
      sketch.Print());
}

TEST(Sketches, ShrinkingKeepsTheDarkestOfWhatFallsTogether) {
  const Section source(4, -1);
  source.Longs()[0] = 0xFFFFFF;
  source.Longs()[1] = 0x00FF00;
  source.Longs()[2] = 0xF0F0F0;
  source.Longs()[3] = 0x3C3C3C;
  const Section target(2, -1);
  StretchBlt(target.dc, 0, 0, 2, 1, source.dc, 0, 0, 4, 1, SRCCOPY);
  EXPECT_EQ(0x00FF00U, target.Longs()[0] & 0xFFFFFF);
  EXPECT_EQ(0x303030U, target.Longs()[1] & 0xFFFFFF);
}

TEST(Sketches, ShrinkingToOnePixelLeavesOutTheLastUnlessMirrored) {
  const Section source(3, -1);
  source.Longs()[0] = 0xFFFFFF;
  source.Longs()[1] = 0xFFFF00;
  source.Longs()[2] = 0x00FFFF;
  const Section target(2, -1);
  StretchBlt(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 3, 1, SRCCOPY);
  EXPECT_EQ(0xFFFF00U, target.Longs()[0] & 0xFFFFFF);
  StretchBlt(target.dc, 1, 0, -1, 1, source.dc, 0, 0, 3, 1, SRCCOPY);
  EXPECT_EQ(0x00FF00U, target.Longs()[1] & 0xFFFFFF);
}

/// Premultiplied 0x402010 at alpha 0x80 over white: 255 - 128 of each channel is left of it, and
/// the source added.
TEST(Blending, AddsTheSourceToWhatItsAlphaLeaves) {
  const Section source(1, -1);
  source.Longs()[0] = 0x80402010;
  const Section target(1, -1);
  target.Longs()[0] = 0x00FFFFFF;
  AlphaBlend(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 1, 1, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
  EXPECT_EQ(0x80BF9F8FU, target.Longs()[0]);
}

/// Not premultiplied: 0xFF and 0x80 / 0xFF of the white below make 0x17F. The excess bit is set in
/// the byte above; adding it there would make 0x80 of 0x7F.
TEST(Blending, ExcessOfAByteIsSetInTheOneAbove) {
  const Section source(2, -1);
  source.Longs()[0] = 0x7FFFFFFF;
  source.Longs()[1] = 0x7F0000FF;
  const Section target(2, -1);
  target.Longs()[0] = 0x00FFFFFF;
  target.Longs()[1] = 0x000010FF;
  AlphaBlend(target.dc, 0, 0, 2, 1, source.dc, 0, 0, 2, 1, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
  EXPECT_EQ(0x7F7F7F7FU, target.Longs()[0]);
  // Green keeps 0x10 * 0x80 / 0xFF = 8 and gets the lowest bit.
  EXPECT_EQ(0x7F00097FU, target.Longs()[1]);
}

/// The high byte takes part like a colour: (0x40 * 0x33 + 0x0A * 0xCC) / 0xFF, nearest.
TEST(Blending, ConstantAlphaBlendsTheHighByteToo) {
  const Section source(1, -1);
  source.Longs()[0] = 0x40000000;
  const Section target(1, -1);
  target.Longs()[0] = 0x0A000000;
  AlphaBlend(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 1, 1, {AC_SRC_OVER, 0, 0x33, 0});
  EXPECT_EQ(0x15000000U, target.Longs()[0]);
}

TEST(Blending, PixelsOf16BitsAreOpaque) {
  const Section source(1, -1, 16);
  source.Words()[0] = 0x7C00;
  const Section target(1, -1);
  AlphaBlend(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 1, 1, {AC_SRC_OVER, 0, 0x33, 0});
  EXPECT_EQ(0x33330000U, target.Longs()[0]);
}

TEST(Blending, IntoPixelsOf16BitsClearsTheUnusedBit) {
  const Section source(1, -1);
  const Section target(1, -1, 16);
  target.Words()[0] = 0xFFFF;
  AlphaBlend(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 1, 1, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
  EXPECT_EQ(0x7FFF, target.Words()[0]);
}

/// Of the columns that fall together the last one is taken, of the rows the first one.
TEST(Blending, ShrinkingTakesTheLastColumnAndTheFirstRow) {
  const Section source(4, -4);
  for (std::uint32_t i = 0; i < 16; ++i) {
    source.Longs()[i] = i;
  }
  const Section target(2, -2);
  AlphaBlend(target.dc, 0, 0, 2, 2, source.dc, 0, 0, 4, 4, {AC_SRC_OVER, 0, 255, 0});
  EXPECT_EQ(1U, target.Longs()[0]);
  EXPECT_EQ(3U, target.Longs()[1]);
  EXPECT_EQ(9U, target.Longs()[2]);
  EXPECT_EQ(11U, target.Longs()[3]);
}

TEST(Blending, ConstantAlphaOfZeroChangesNothing) {
  const Section source(1, -1);
  source.Longs()[0] = 0x80402010;
  const Section target(1, -1);
  target.Longs()[0] = 0x00102030;
  AlphaBlend(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 1, 1, {AC_SRC_OVER, 0, 0, AC_SRC_ALPHA});
  EXPECT_EQ(0x00102030U, target.Longs()[0]);
}

}  // namespace
