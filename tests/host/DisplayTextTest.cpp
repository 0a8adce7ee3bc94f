#include <gtest/gtest.h>

#include "base/DisplayText.h"

namespace host {
namespace {

TEST(DisplayText, CountsColumnsNotBytes) {
  EXPECT_EQ(0u, CountColumns(""));
  EXPECT_EQ(5u, CountColumns("Speed"));
  EXPECT_EQ(8u, CountColumns("Скорость"));
  EXPECT_EQ(6u, CountColumns("55°44'"));
  EXPECT_EQ(4u, CountColumns("速度"));
  EXPECT_EQ(1u, CountColumns("e\xCC\x81"));  // e and a combining accent
}

TEST(DisplayText, CountsABrokenByteAsOneColumn) {
  EXPECT_EQ(3u, CountColumns("a\xFF\xD0"));
}

TEST(DisplayText, CutsWithAnEllipsis) {
  EXPECT_EQ("Скорость", CutToColumns("Скорость", 8));
  EXPECT_EQ("Ско…", CutToColumns("Скорость", 4));
  EXPECT_EQ("…", CutToColumns("Speed", 1));
  EXPECT_EQ("", CutToColumns("Speed", 0));
  EXPECT_EQ("速…", CutToColumns("速度計", 4));
}

TEST(DisplayText, PadsToColumns) {
  EXPECT_EQ("км  ", PadRight("км", 4));
  EXPECT_EQ("  км", PadLeft("км", 4));
  EXPECT_EQ("кил…", PadRight("километр", 4));
}

TEST(DisplayText, KnowsValidUtf8) {
  EXPECT_EQ(1u, Utf8Length("a"));
  EXPECT_EQ(2u, Utf8Length("я"));
  EXPECT_EQ(3u, Utf8Length("€"));
  EXPECT_EQ(4u, Utf8Length("\xF0\x9F\x98\x80"));
  EXPECT_EQ(0u, Utf8Length("\x80"));
  EXPECT_EQ(0u, Utf8Length("\xC0\x80"));          // overlong
  EXPECT_EQ(0u, Utf8Length("\xE0\x80\x80"));      // overlong
  EXPECT_EQ(0u, Utf8Length("\xF0\x80\x80\x80"));  // overlong
  EXPECT_EQ(0u, Utf8Length("\xED\xA0\x80"));      // surrogate
  EXPECT_EQ(0u, Utf8Length("\xF4\x90\x80\x80"));  // beyond U+10FFFF
  EXPECT_EQ(0u, Utf8Length("\xD1"));              // cut off
}

}  // namespace
}  // namespace host
