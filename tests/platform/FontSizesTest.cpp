#include <gtest/gtest.h>
#include <windows.h>

#include <climits>

namespace {

SIZE Measure(LONG height) {
  const HDC dc = CreateCompatibleDC(nullptr);
  LOGFONTW description = {};
  description.lfHeight = height;
  const HFONT font = CreateFontIndirectW(&description);
  const HGDIOBJ previous = SelectObject(dc, font);
  RECT rect = {};
  DrawTextW(dc, u"88", -1, &rect, DT_CALCRECT);
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

}  // namespace
