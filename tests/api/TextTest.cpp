#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace {

constexpr UINT LATIN = 1252;
constexpr UINT CYRILLIC = 1251;
constexpr UINT NO_CODE_PAGE = 4711;

TEST(Text, IsMeasuredWithASizeOfZero) {
  EXPECT_EQ(3, MultiByteToWideChar(LATIN, 0, "abc", 3, nullptr, 0));
  EXPECT_EQ(4, MultiByteToWideChar(LATIN, 0, "abc", -1, nullptr, 0));
  EXPECT_EQ(3, WideCharToMultiByte(LATIN, 0, TEXT("abc"), 3, nullptr, 0, nullptr, nullptr));
  EXPECT_EQ(4, WideCharToMultiByte(LATIN, 0, TEXT("abc"), -1, nullptr, 0, nullptr, nullptr));
}

TEST(Text, OfUnknownLengthIsConvertedWithItsEnd) {
  WCHAR wide[4] = {'x', 'x', 'x', 'x'};
  EXPECT_EQ(3, MultiByteToWideChar(LATIN, 0, "ab", -1, wide, 4));
  EXPECT_EQ(0, wide[2]);
  EXPECT_EQ('x', wide[3]);
  char narrow[4] = {'x', 'x', 'x', 'x'};
  EXPECT_EQ(3, WideCharToMultiByte(LATIN, 0, TEXT("ab"), -1, narrow, 4, nullptr, nullptr));
  EXPECT_EQ('\0', narrow[2]);
  EXPECT_EQ('x', narrow[3]);
}

TEST(Text, ThatDoesNotFitIsAnErrorButFillsTheBuffer) {
  WCHAR wide[3] = {'z', 'z', 'z'};
  EXPECT_EQ(0, MultiByteToWideChar(LATIN, 0, "abc", 3, wide, 2));
  EXPECT_EQ(ERROR_INSUFFICIENT_BUFFER, GetLastError());
  EXPECT_EQ('a', wide[0]);
  EXPECT_EQ('b', wide[1]);
  EXPECT_EQ('z', wide[2]);
  char narrow[3] = {'z', 'z', 'z'};
  EXPECT_EQ(0, WideCharToMultiByte(LATIN, 0, TEXT("abc"), 3, narrow, 2, nullptr, nullptr));
  EXPECT_EQ(ERROR_INSUFFICIENT_BUFFER, GetLastError());
  EXPECT_EQ('z', narrow[2]);
}

TEST(Text, OfNoLengthInNoPlaceOrInNoCodePageIsAnError) {
  WCHAR wide[8];
  char narrow[8];
  EXPECT_EQ(0, MultiByteToWideChar(LATIN, 0, "abc", 0, wide, 8));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_EQ(0, MultiByteToWideChar(LATIN, 0, nullptr, 3, wide, 8));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_EQ(0, MultiByteToWideChar(NO_CODE_PAGE, 0, "abc", 3, wide, 8));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_EQ(0, WideCharToMultiByte(LATIN, 0, TEXT("abc"), 0, narrow, 8, nullptr, nullptr));
  EXPECT_EQ(0, WideCharToMultiByte(LATIN, 0, nullptr, 3, narrow, 8, nullptr, nullptr));
  EXPECT_EQ(0, WideCharToMultiByte(NO_CODE_PAGE, 0, TEXT("abc"), 3, narrow, 8, nullptr, nullptr));
}

TEST(Text, CoversAllBytesOfBothCodePages) {
  for (const UINT page : {LATIN, CYRILLIC}) {
    for (int byte = 0; byte < 256; ++byte) {
      const char narrow = static_cast<char>(byte);
      WCHAR wide = 0;
      ASSERT_EQ(1, MultiByteToWideChar(page, 0, &narrow, 1, &wide, 1)) << page << " " << byte;
      char back = 0;
      ASSERT_EQ(1, WideCharToMultiByte(page, 0, &wide, 1, &back, 1, nullptr, nullptr));
      EXPECT_EQ(narrow, back) << page << " " << byte;
    }
  }
}

TEST(Text, HasTheLettersOfItsCodePage) {
  WCHAR wide = 0;
  EXPECT_EQ(1, MultiByteToWideChar(CYRILLIC, 0, "\xFF", 1, &wide, 1));
  EXPECT_EQ(0x044F, wide);
  EXPECT_EQ(1, MultiByteToWideChar(LATIN, 0, "\x80", 1, &wide, 1));
  EXPECT_EQ(0x20AC, wide);
  // Bytes without a letter stand for control characters.
  EXPECT_EQ(1, MultiByteToWideChar(LATIN, 0, "\x81", 1, &wide, 1));
  EXPECT_EQ(0x0081, wide);
  EXPECT_EQ(1, MultiByteToWideChar(CYRILLIC, 0, "\x98", 1, &wide, 1));
  EXPECT_EQ(0x0098, wide);
}

TEST(Text, HasAQuestionMarkForWhatTheCodePageLacks) {
  const WCHAR letters[] = {0x0416, 0x4E2D};
  char narrow[2] = {};
  EXPECT_EQ(2, WideCharToMultiByte(LATIN, 0, letters, 2, narrow, 2, nullptr, nullptr));
  EXPECT_EQ("??", std::string(narrow, 2));
  BOOL usedDefault = FALSE;
  EXPECT_EQ(2, WideCharToMultiByte(LATIN, 0, letters, 2, narrow, 2, "#", &usedDefault));
  EXPECT_EQ("##", std::string(narrow, 2));
  EXPECT_TRUE(usedDefault);
  EXPECT_EQ(1, WideCharToMultiByte(LATIN, 0, TEXT("a"), 1, narrow, 2, "#", &usedDefault));
  EXPECT_FALSE(usedDefault);
}

TEST(Text, NamesTheLanguageWithThreeLetters) {
  WCHAR name[8];
  EXPECT_EQ(4, GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVLANGNAME, nullptr, 0));
  EXPECT_EQ(4, GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVLANGNAME, name, 4));
  EXPECT_EQ(0, GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVLANGNAME, name, 2));
  EXPECT_EQ(ERROR_INSUFFICIENT_BUFFER, GetLastError());
}

}  // namespace
