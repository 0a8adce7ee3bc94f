#include <gtest/gtest.h>

#include <string>

#include "handheld.h"
#include "text/CodePages.h"

namespace {

class CodePages : public testing::Test {
 protected:
  CodePages() { handheld::SetCodePage(1251); }
  ~CodePages() override { handheld::SetCodePage(1252); }
};

TEST_F(CodePages, WidenCyrillic) {
  char16_t wide[8] = {};
  EXPECT_EQ(3, MultiByteToWideChar(CP_ACP, 0, "\xEA\xEC\xFF", 3, wide, 8));
  EXPECT_EQ(u"кмя", std::u16string(wide, 3));
}

TEST_F(CodePages, NarrowCyrillic) {
  char text[8] = {};
  EXPECT_EQ(4, WideCharToMultiByte(CP_ACP, 0, u"км/ч", 4, text, 8, nullptr, nullptr));
  EXPECT_EQ("\xEA\xEC/\xF7", std::string(text, 4));
}

TEST_F(CodePages, WesternHasItsOwnLetters) {
  handheld::SetCodePage(1252);
  char16_t wide[4] = {};
  EXPECT_EQ(2, MultiByteToWideChar(CP_ACP, 0, "\xE9\x80", 2, wide, 4));
  EXPECT_EQ(u"é€", std::u16string(wide, 2));
}

TEST_F(CodePages, MayBeNamedExplicitly) {
  char16_t wide[2] = {};
  EXPECT_EQ(1, MultiByteToWideChar(1252, 0, "\xE9", 1, wide, 2));
  EXPECT_EQ(u'é', wide[0]);
  EXPECT_EQ(1, MultiByteToWideChar(1251, 0, "\xE9", 1, wide, 2));
  EXPECT_EQ(u'й', wide[0]);
}

TEST_F(CodePages, EveryByteGoesThereAndBack) {
  for (const UINT number : {1251u, 1252u}) {
    for (int i = 0; i < 256; ++i) {
      const char byte = static_cast<char>(i);
      char16_t wide = 0;
      char back = 0;
      ASSERT_EQ(1, MultiByteToWideChar(number, 0, &byte, 1, &wide, 1));
      ASSERT_EQ(1, WideCharToMultiByte(number, 0, &wide, 1, &back, 1, nullptr, nullptr));
      EXPECT_EQ(byte, back) << number << " " << i;
    }
  }
}

TEST_F(CodePages, UnassignedBytesAreControlCharacters) {
  char16_t wide = 0;
  EXPECT_EQ(1, MultiByteToWideChar(1251, 0, "\x98", 1, &wide, 1));
  EXPECT_EQ(0x98, wide);
  EXPECT_EQ(1, MultiByteToWideChar(1252, 0, "\x81", 1, &wide, 1));
  EXPECT_EQ(0x81, wide);
}

TEST_F(CodePages, UnknownCharactersBecomeTheDefault) {
  char text[8] = {};
  BOOL used = FALSE;
  EXPECT_EQ(3, WideCharToMultiByte(CP_ACP, 0, u"aéb", 3, text, 8, nullptr, &used));
  EXPECT_EQ("a?b", std::string(text, 3));
  EXPECT_TRUE(used);
  EXPECT_EQ(3, WideCharToMultiByte(CP_ACP, 0, u"aéb", 3, text, 8, "_", &used));
  EXPECT_EQ("a_b", std::string(text, 3));
  EXPECT_EQ(1, WideCharToMultiByte(CP_ACP, 0, u"a", 1, text, 8, nullptr, &used));
  EXPECT_FALSE(used);
}

TEST_F(CodePages, LengthMinusOneIncludesTheEnd) {
  char16_t wide[4] = {u'x', u'x', u'x', u'x'};
  EXPECT_EQ(3, MultiByteToWideChar(CP_ACP, 0, "ab", -1, wide, 4));
  EXPECT_EQ(u'\0', wide[2]);
  EXPECT_EQ(u'x', wide[3]);
  char text[4] = {'x', 'x', 'x', 'x'};
  EXPECT_EQ(3, WideCharToMultiByte(CP_ACP, 0, u"ab", -1, text, 4, nullptr, nullptr));
  EXPECT_EQ('\0', text[2]);
}

TEST_F(CodePages, SizeZeroAsksForTheSize) {
  EXPECT_EQ(3, MultiByteToWideChar(CP_ACP, 0, "ab", -1, nullptr, 0));
  EXPECT_EQ(2, WideCharToMultiByte(CP_ACP, 0, u"ab", 2, nullptr, 0, nullptr, nullptr));
}

TEST_F(CodePages, TooSmallBuffersFail) {
  char16_t wide[2];
  EXPECT_EQ(0, MultiByteToWideChar(CP_ACP, 0, "ab", -1, wide, 2));
  EXPECT_EQ(ERROR_INSUFFICIENT_BUFFER, GetLastError());
  char text[2];
  EXPECT_EQ(0, WideCharToMultiByte(CP_ACP, 0, u"abc", 3, text, 2, nullptr, nullptr));
  EXPECT_EQ(ERROR_INSUFFICIENT_BUFFER, GetLastError());
}

TEST_F(CodePages, MisuseFails) {
  char16_t wide[2];
  EXPECT_EQ(0, MultiByteToWideChar(866, 0, "a", 1, wide, 2));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_EQ(0, MultiByteToWideChar(CP_ACP, 0, "a", 0, wide, 2));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_EQ(0, MultiByteToWideChar(CP_ACP, 0, nullptr, -1, wide, 2));
  EXPECT_EQ(0, MultiByteToWideChar(CP_ACP, 0, "a", 1, nullptr, 2));
  EXPECT_EQ(0, MultiByteToWideChar(CP_ACP, 0, "a", 1, wide, -1));
  char text[2];
  EXPECT_EQ(0, WideCharToMultiByte(CP_ACP, 0, u"a", 0, text, 2, nullptr, nullptr));
  EXPECT_EQ(0, WideCharToMultiByte(CP_ACP, 0, nullptr, 1, text, 2, nullptr, nullptr));
}

TEST_F(CodePages, HostsConvertThroughUtf8) {
  EXPECT_EQ("км", handheld::Utf8FromAnsi("\xEA\xEC"));
  EXPECT_EQ("\xEA\xEC", handheld::AnsiFromUtf8("км"));
  // One character, one question mark, however many units it has.
  EXPECT_EQ("?a?", handheld::AnsiFromUtf8("\U0001F680aé"));
  handheld::SetCodePage(1252);
  EXPECT_EQ("??", handheld::AnsiFromUtf8("км"));
}

TEST_F(CodePages, UnknownNumbersChangeNothing) {
  handheld::SetCodePage(866);
  EXPECT_EQ(1251u, handheld::AnsiCodePage());
}

}  // namespace
