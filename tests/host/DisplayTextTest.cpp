#include <gtest/gtest.h>

#include "base/DisplayText.h"

namespace host {
namespace {

TEST(DisplayText, CountsColumnsNotBytes) {
  EXPECT_EQ(CountColumns(""), 0u);
  EXPECT_EQ(CountColumns("Speed"), 5u);
  EXPECT_EQ(CountColumns("Скорость"), 8u);
  EXPECT_EQ(CountColumns("55°44'"), 6u);
  EXPECT_EQ(CountColumns("速度"), 4u);
  EXPECT_EQ(CountColumns("e\xCC\x81"), 1u);  // e and a combining accent
}

TEST(DisplayText, CountsABrokenByteAsOneColumn) {
  EXPECT_EQ(CountColumns("a\xFF\xD0"), 3u);
}

TEST(DisplayText, CutsWithAnEllipsis) {
  EXPECT_EQ(CutToColumns("Скорость", 8), "Скорость");
  EXPECT_EQ(CutToColumns("Скорость", 4), "Ско…");
  EXPECT_EQ(CutToColumns("Speed", 1), "…");
  EXPECT_EQ(CutToColumns("Speed", 0), "");
  EXPECT_EQ(CutToColumns("速度計", 4), "速…");
}

TEST(DisplayText, PadsToColumns) {
  EXPECT_EQ(PadRight("км", 4), "км  ");
  EXPECT_EQ(PadLeft("км", 4), "  км");
  EXPECT_EQ(PadRight("километр", 4), "кил…");
}

TEST(DisplayText, KnowsValidUtf8) {
  EXPECT_EQ(Utf8Length("a"), 1u);
  EXPECT_EQ(Utf8Length("я"), 2u);
  EXPECT_EQ(Utf8Length("€"), 3u);
  EXPECT_EQ(Utf8Length("\xF0\x9F\x98\x80"), 4u);
  EXPECT_EQ(Utf8Length("\x80"), 0u);
  EXPECT_EQ(Utf8Length("\xC0\x80"), 0u);          // overlong
  EXPECT_EQ(Utf8Length("\xE0\x80\x80"), 0u);      // overlong
  EXPECT_EQ(Utf8Length("\xF0\x80\x80\x80"), 0u);  // overlong
  EXPECT_EQ(Utf8Length("\xED\xA0\x80"), 0u);      // surrogate
  EXPECT_EQ(Utf8Length("\xF4\x90\x80\x80"), 0u);  // beyond U+10FFFF
  EXPECT_EQ(Utf8Length("\xD1"), 0u);              // cut off
}

}  // namespace
}  // namespace host
