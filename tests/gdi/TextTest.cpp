// Text: size, lines, position, angles, and the font file of a face name.

#include <gtest/gtest.h>
#include <handheld.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "Section.h"

namespace {

/// A picture with a font selected.
class Page {
 public:
  Page(std::u16string_view face, LONG height, LONG tenthsOfDegrees = 0, WORD bitsPerPixel = 32)
      : section(WIDTH, -HEIGHT, bitsPerPixel) {
    LOGFONTW description = {};
    description.lfHeight = height;
    description.lfEscapement = tenthsOfDegrees;
    description.lfOrientation = tenthsOfDegrees;
    face.copy(description.lfFaceName, LF_FACESIZE - 1);
    font = CreateFontIndirectW(&description);
    old = SelectObject(section.dc, font);
    SetTextColor(section.dc, WHITE);
    SetBkMode(section.dc, TRANSPARENT);
  }
  ~Page() {
    SelectObject(section.dc, old);
    DeleteObject(font);
  }
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  SIZE Measure(LPCWSTR text) const {
    RECT rect = {7, 9, 0, 0};
    returned = DrawTextW(section.dc, text, -1, &rect, DT_CALCRECT);
    EXPECT_EQ(7, rect.left);
    EXPECT_EQ(9, rect.top);
    return {rect.right - 7, rect.bottom - 9};
  }

  /// Draws at (x, y) and returns the rectangle of the pixels that were touched.
  RECT Draw(LPCWSTR text, LONG x, LONG y) const {
    RECT rect = {x, y, x + 1, y + 1};
    DrawTextW(section.dc, text, -1, &rect, DT_NOCLIP);
    RECT touched = {WIDTH, HEIGHT, 0, 0};
    for (LONG row = 0; row < HEIGHT; ++row) {
      for (LONG column = 0; column < WIDTH; ++column) {
        if (section.At(column, row) != 0) {
          touched = {std::min(touched.left, column), std::min(touched.top, row),
                     std::max(touched.right, column + 1), std::max(touched.bottom, row + 1)};
        }
      }
    }
    return touched;
  }

  mutable int returned = 0;

  static constexpr LONG WIDTH = 200;
  static constexpr LONG HEIGHT = 100;
  const Section section;

 private:
  HFONT font;
  HGDIOBJ old;
};

void ExpectSize(LONG width, LONG height, const SIZE& size) {
  EXPECT_EQ(width, size.cx);
  EXPECT_EQ(height, size.cy);
}

TEST(Text, TakesTheRoomThatTheRealDeviceGivesIt) {
  const Page small(u"Liberation Serif", 18);
  ExpectSize(34, 17, small.Measure(TEXT("Wgy|")));
  ExpectSize(108, 17, small.Measure(TEXT("OOOOOOOOO")));
  const Page large(u"Liberation Serif", 28);
  ExpectSize(96, 27, large.Measure(TEXT("12.34 km")));
  ExpectSize(101, 27, large.Measure(TEXT("\x0421\x043A\x043E\x0440\x043E\x0441\x0442\x044C")));
}

TEST(Text, LinesLieBelowEachOther) {
  const Page page(u"Liberation Serif", 18);
  ExpectSize(23, 34, page.Measure(TEXT("a\nbcd")));
  EXPECT_EQ(34, page.returned);
  ExpectSize(8, 34, page.Measure(TEXT("x\r\ny\n")));
}

TEST(Text, EmptyTextTakesNoRoomButSaysHowHighALineIs) {
  const Page page(u"Liberation Serif", 18);
  ExpectSize(0, 0, page.Measure(TEXT("")));
  EXPECT_EQ(17, page.returned);
}

TEST(Text, AmpersandsMarkShortcutsAndTwoShowOne) {
  const Page page(u"Liberation Serif", 18);
  ExpectSize(50, 17, page.Measure(TEXT("A&B && c")));
  ExpectSize(page.Measure(TEXT("AB")).cx, 17, page.Measure(TEXT("A&B")));
}

TEST(Text, IsDrawnFromItsUpperLeftCorner) {
  const Page page(u"Liberation Serif", 18);
  const RECT touched = page.Draw(TEXT("123.45"), 5, 10);
  EXPECT_EQ(7, touched.left);
  EXPECT_EQ(13, touched.top);
  EXPECT_EQ(48, touched.right);
  EXPECT_EQ(24, touched.bottom);
}

/// The cells are 34 and 108 wide and 17 high.
TEST(Text, FillsItsCellsUnlessItIsTransparent) {
  const Page page(u"Liberation Serif", 18);
  SetBkMode(page.section.dc, OPAQUE);
  const RECT touched = page.Draw(TEXT("Wgy|\nOOOOOOOOO"), 5, 10);
  EXPECT_EQ(5, touched.left);
  EXPECT_EQ(10, touched.top);
  EXPECT_EQ(5 + 108, touched.right);
  EXPECT_EQ(10 + 2 * 17, touched.bottom);
  EXPECT_EQ(WHITE, GetPixel(page.section.dc, 5 + 33, 10));
  EXPECT_EQ(RGB(0, 0, 0), GetPixel(page.section.dc, 5 + 34, 10)) << "beside the shorter line";
}

TEST(Text, TurnsAroundItsCorner) {
  const Page page(u"Liberation Serif", 18, 900);
  const RECT touched = page.Draw(TEXT("123.45"), 90, 45);
  EXPECT_EQ(93, touched.left);
  EXPECT_EQ(2, touched.top);
  EXPECT_EQ(104, touched.right);
  EXPECT_EQ(43, touched.bottom);
}

/// Where a stroke covers c sixteenths of a pixel, white on black has the brightness of c, and black
/// on white that of what is left of the sixteen.
TEST(Text, BlackOnWhiteIsAsBrightAsWhiteOnBlackWithAsMuchUncovered) {
  const Page light(u"Liberation Serif", 36);
  light.Draw(TEXT("S"), 0, 0);
  const Page dark(u"Liberation Serif", 36);
  const RECT all = {0, 0, Page::WIDTH, Page::HEIGHT};
  FillRect(dark.section.dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  SetTextColor(dark.section.dc, RGB(0, 0, 0));
  dark.Draw(TEXT("S"), 0, 0);
  int partlyCovered = 0;
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 40; ++x) {
      const BYTE brightness = GetRValue(light.section.At(x, y));
      const BYTE darkness = GetRValue(dark.section.At(x, y));
      // 2 and 14 sixteenths, 6 and 10, 8 and 8.
      if (brightness == 0x68) {
        EXPECT_EQ(0xF0, darkness);
      } else if (brightness == 0xA7) {
        EXPECT_EQ(0xD0, darkness);
      } else if (brightness == 0xBD) {
        EXPECT_EQ(0xBD, darkness);
      } else {
        continue;
      }
      ++partlyCovered;
    }
  }
  EXPECT_GT(partlyCovered, 5);
}

/// Blue of 128 is 16 of 31 there and looks like 132; of that 0xF8 / 0xFF are 128 and 16 again. 124
/// of 128 would be 15.
TEST(Text, EdgesIn16BitsFadeFromTheColourAsItIsShown) {
  const Page white(u"Liberation Serif", 36);
  white.Draw(TEXT("S"), 0, 0);
  const Page blue(u"Liberation Serif", 36, 0, 16);
  SetTextColor(blue.section.dc, RGB(0, 0, 128));
  blue.Draw(TEXT("S"), 0, 0);
  int edges = 0;
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 40; ++x) {
      if (GetRValue(white.section.At(x, y)) == 0xF8) {
        EXPECT_EQ(RGB(0, 0, 0x84), blue.section.At(x, y));
        ++edges;
      }
    }
  }
  EXPECT_GT(edges, 0);
}

TEST(Text, StaysInItsLine) {
  for (LONG height = 6; height <= 60; ++height) {
    const Page page(u"Liberation Serif", height);
    const LONG lineHeight = page.Measure(TEXT("g")).cy;
    const RECT touched = page.Draw(TEXT("gjpqy|\x0419"), 5, 20);
    EXPECT_GE(touched.top, 20) << height;
    EXPECT_LE(touched.bottom, 20 + lineHeight) << height;
  }
}

/// The base line lies 14 below the corner, turned by 168 degrees 13.69 above it. From 14 and from
/// 13 that comes to 0.31 and -0.69, both cut to 0.
TEST(Text, TurnedOutOfThePictureIsPlacedByCuttingToo) {
  const Page page(u"Liberation Serif", 18, 1680);
  const RECT inside = page.Draw(TEXT("123.45"), 150, 14);
  const Page other(u"Liberation Serif", 18, 1680);
  const RECT outside = other.Draw(TEXT("123.45"), 150, 13);
  EXPECT_EQ(inside.top, outside.top);
  EXPECT_EQ(inside.bottom, outside.bottom);
}

TEST(Text, CellIsAsHighAsAskedForWhereTheFontAllowsIt) {
  const std::u16string file = handheld::DevicePath(ASSETS "/lcd-u.ttf");
  ASSERT_EQ(1, AddFontResourceW(file.c_str()));
  for (const LONG height : {5, 32, 70, 140, 170}) {
    EXPECT_EQ(height, Page(u"LCD", height).Measure(TEXT("8")).cy);
  }
  EXPECT_EQ(TRUE, RemoveFontResourceW(file.c_str()));
}

TEST(Text, AddedFontsAreFoundByTheirNameUntilTheyAreRemoved) {
  const std::u16string file = handheld::DevicePath(ASSETS "/lcd-u.ttf");
  const SIZE without = Page(u"LCD", 100).Measure(TEXT("188"));
  ASSERT_EQ(1, AddFontResourceW(file.c_str()));
  // Three figures of 530 thousandths of the height each.
  EXPECT_EQ(159, Page(u"lcd", 100).Measure(TEXT("188")).cx);
  EXPECT_EQ(TRUE, RemoveFontResourceW(file.c_str()));
  EXPECT_EQ(without.cx, Page(u"LCD", 100).Measure(TEXT("188")).cx);
  EXPECT_EQ(FALSE, RemoveFontResourceW(file.c_str()));
}

TEST(Text, FontsThatAreInUseFollowTheAddedOnes) {
  const std::u16string file = handheld::DevicePath(ASSETS "/lcd-u.ttf");
  const Page page(u"LCD", 100);
  const SIZE without = page.Measure(TEXT("188"));
  ASSERT_NE(159, without.cx);
  ASSERT_EQ(1, AddFontResourceW(file.c_str()));
  EXPECT_EQ(159, page.Measure(TEXT("188")).cx);
  EXPECT_EQ(TRUE, RemoveFontResourceW(file.c_str()));
  EXPECT_EQ(without.cx, page.Measure(TEXT("188")).cx);
}

}  // namespace
