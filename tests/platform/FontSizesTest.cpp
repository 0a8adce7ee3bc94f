#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <climits>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "gdi/SizedFont.h"
#include "handheld.h"
#include "support/TempFolder.h"

namespace {

SIZE Measure(LONG height, const char16_t* face = u"") {
  const HDC dc = CreateCompatibleDC(nullptr);
  LOGFONTW description = {};
  description.lfHeight = height;
  std::u16string_view(face).copy(description.lfFaceName, LF_FACESIZE - 1);
  const HFONT font = CreateFontIndirectW(&description);
  const HGDIOBJ previous = SelectObject(dc, font);
  RECT rect = {};
  DrawTextW(dc, u"8", -1, &rect, DT_CALCRECT);
  SelectObject(dc, previous);
  DeleteObject(font);
  DeleteDC(dc);
  return {rect.right, rect.bottom};
}

/// Glyphs of 20,000 pixels would take gigabytes.
TEST(FontSizesTest, AThousandPixelsAreTheMost) {
  EXPECT_LT(Measure(999).cx, Measure(1000).cx);
  for (const LONG height : {1001, 20'000, INT_MAX}) {
    EXPECT_EQ(Measure(1000).cx, Measure(height).cx) << height;
    EXPECT_EQ(Measure(1000).cy, Measure(height).cy) << height;
  }
  for (const LONG height : {-1001, -20'000, INT_MIN}) {
    EXPECT_EQ(Measure(-1000).cx, Measure(height).cx) << height;
    EXPECT_EQ(Measure(-1000).cy, Measure(height).cy) << height;
  }
}

/// A copy of the display font with numbers of its tables changed.
class DamagedFont {
 public:
  DamagedFont() {
    std::ifstream file(DISPLAY_FONT, std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(file), {});
  }

  /// Sets a number of two bytes.
  void Set(const std::string& table, std::size_t offset, int number) {
    const std::size_t entry = bytes.find(table);
    std::size_t start = 0;
    for (std::size_t i = 8; i < 12; ++i) {
      start = start << 8 | static_cast<unsigned char>(bytes.at(entry + i));
    }
    bytes.at(start + offset) = static_cast<char>(number >> 8);
    bytes.at(start + offset + 1) = static_cast<char>(number);
  }

  const std::string& GetBytes() const { return bytes; }

  /// Size of a figure of a font of this height.
  SIZE Measure(LONG height) const {
    const testing_support::TempFolder folder;
    folder.Write("damaged.ttf", bytes);
    const std::u16string path = folder.DevicePath("damaged.ttf");
    EXPECT_EQ(1, AddFontResourceW(path.c_str()));
    const SIZE size = ::Measure(height, u"LCD");
    RemoveFontResourceW(path.c_str());
    return size;
  }

 private:
  std::string bytes;
};

TEST(DamagedFontTest, IsNamedWhenItIsNoFont) {
  const testing_support::TempFolder folder;
  folder.Write("damaged.ttf", "no font");
  const std::u16string path = folder.DevicePath("damaged.ttf");
  AddFontResourceW(path.c_str());
  Measure(20, u"Any face");
  Measure(30, u"Any face");
  RemoveFontResourceW(path.c_str());
  const std::vector<std::string> files = handheld::UnreadableFiles();
  EXPECT_EQ(1, std::ranges::count(files, folder.Path("damaged.ttf")));
}

TEST(DamagedFontTest, OfLinesWithoutAHeightIsNoTrouble) {
  DamagedFont font;
  font.Set("OS/2", 74, 0);
  font.Set("OS/2", 76, 0);
  font.Set("hhea", 4, 100);
  font.Set("hhea", 6, 100);
  font.Measure(20);
  font.Measure(-20);
}

/// An em square of 16 units makes a figure of 33,125 by 62,500 pixels.
TEST(DamagedFontTest, OfHugeGlyphsIsMeasuredButNotDrawn) {
  DamagedFont damaged;
  damaged.Set("head", 18, 16);
  const testing_support::TempFolder folder;
  folder.Write("damaged.ttf", damaged.GetBytes());
  handheld::gdi::SizedFont font({folder.Path("damaged.ttf"), 0}, -1000, 0);
  EXPECT_EQ(530 * 1000 / 16, font.GetGlyph('8').width);
  EXPECT_EQ(0U, font.GetBytes());
}

}  // namespace
