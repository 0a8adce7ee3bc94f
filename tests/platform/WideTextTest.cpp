#include <gtest/gtest.h>

#include "handheld.h"
#include "text/WideText.h"

namespace {

using handheld::Utf8FromWide;
using handheld::WideFromUtf8;

TEST(Text, GoesThroughUtf8AndBack) {
  const std::u16string wide = u"aЖ€\U0001F680\u07FF\uFFFF";
  const std::string utf8 = "a\xD0\x96\xE2\x82\xAC\xF0\x9F\x9A\x80\xDF\xBF\xEF\xBF\xBF";
  EXPECT_EQ(utf8, Utf8FromWide(wide));
  EXPECT_EQ(wide, WideFromUtf8(utf8));
}

TEST(Text, UnpairedSurrogatesAreReplaced) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(replacement, Utf8FromWide(std::u16string(1, char16_t{0xD800})));
  EXPECT_EQ(replacement + "x", Utf8FromWide({char16_t{0xDC00}, u'x'}));
  EXPECT_EQ(replacement + "x", Utf8FromWide({char16_t{0xD83D}, u'x'}));
}

TEST(Text, MalformedUtf8IsReplaced) {
  const std::u16string replacement = u"\uFFFD";
  EXPECT_EQ(replacement + u"a", WideFromUtf8("\x80"
                                             "a"));
  EXPECT_EQ(replacement + u"a", WideFromUtf8("\xC3"
                                             "a"));
  EXPECT_EQ(replacement, WideFromUtf8("\xC3"));
  // An overlong form, a surrogate, a code beyond the last character.
  EXPECT_EQ(replacement + replacement, WideFromUtf8("\xC0\x80"));
  EXPECT_EQ(3u, WideFromUtf8("\xED\xA0\x80").size());
  EXPECT_EQ(4u, WideFromUtf8("\xF4\x90\x80\x80").size());
  EXPECT_EQ(replacement, WideFromUtf8("\xFF"));
}

TEST(Text, FoldsLettersOfAllAlphabets) {
  EXPECT_EQ(u"abc1 жё ü", handheld::FoldCase(u"ABc1 ЖЁ Ü"));
}

TEST(Text, LengthOfNullIsZero) {
  EXPECT_EQ(0u, handheld::WideLength(nullptr));
  EXPECT_EQ(3u, handheld::WideLength(u"abc"));
  EXPECT_EQ(u"", handheld::WideText(nullptr));
}

}  // namespace
