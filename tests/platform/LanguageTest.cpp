#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "handheld.h"
#include "text/CodePages.h"

namespace {

std::u16string AbbreviatedLanguage() {
  char16_t text[200];
  const int count = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVLANGNAME, text, 200);
  return count > 0 ? std::u16string(text, static_cast<std::size_t>(count)) : u"";
}

class LanguageTest : public testing::Test {
 protected:
  ~LanguageTest() override {
    handheld::SetLanguage("ENU");
    handheld::SetLocaleFailing(false);
  }
};

TEST_F(LanguageTest, NamesTheLanguageWithItsEnd) {
  handheld::SetLanguage("RUS");
  EXPECT_EQ(std::u16string(u"RUS\0", 4), AbbreviatedLanguage());
}

TEST_F(LanguageTest, TheLanguageChoosesTheCodePage) {
  handheld::SetLanguage("RUS");
  EXPECT_EQ(1251u, handheld::AnsiCodePage());
  handheld::SetLanguage("ENU");
  EXPECT_EQ(1252u, handheld::AnsiCodePage());
}

TEST_F(LanguageTest, KnowsNothingElse) {
  char16_t text[20];
  constexpr LCTYPE LOCALE_SLANGUAGE = 2;
  EXPECT_EQ(0, GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SLANGUAGE, text, 20));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_EQ(0, GetLocaleInfoW(0x409, LOCALE_SABBREVLANGNAME, text, 20));
  EXPECT_EQ(0, GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVLANGNAME, nullptr, 20));
  EXPECT_EQ(0, GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SABBREVLANGNAME, text, -1));
}

TEST_F(LanguageTest, FailsWhenToldTo) {
  handheld::SetLocaleFailing(true);
  EXPECT_EQ(u"", AbbreviatedLanguage());
  handheld::SetLocaleFailing(false);
  EXPECT_NE(u"", AbbreviatedLanguage());
}

/// The environment is read once, so each case needs a process of its own.
[[noreturn]] void ExitWithLanguage(const char* all, const char* messages, const char* language) {
  setenv("LC_ALL", all, 1);
  setenv("LC_MESSAGES", messages, 1);
  setenv("LANG", language, 1);
  std::exit(AbbreviatedLanguage()[0] == u'R' && handheld::AnsiCodePage() == 1251 ? 10 : 20);
}

TEST(LanguageDeathTest, StartsWithTheLanguageOfTheEnvironment) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(ExitWithLanguage("", "", "ru_RU.UTF-8"), testing::ExitedWithCode(10), "");
  EXPECT_EXIT(ExitWithLanguage("", "en_US.UTF-8", "ru_RU"), testing::ExitedWithCode(20), "");
  EXPECT_EXIT(ExitWithLanguage("ru_UA", "en_US.UTF-8", "C"), testing::ExitedWithCode(10), "");
  EXPECT_EXIT(ExitWithLanguage("", "", ""), testing::ExitedWithCode(20), "");
}

}  // namespace
