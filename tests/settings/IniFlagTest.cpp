#include <gtest/gtest.h>

#include "settings/IniFlag.h"

namespace ferolin {
namespace {

TEST(IniFlagTest, FlagsAreWrittenAsWords) {
  EXPECT_EQ("true", FlagText(true));
  EXPECT_EQ("false", FlagText(false));
}

TEST(IniFlagTest, AnyValueThatContainsTrueIsOn) {
  EXPECT_TRUE(FlagFrom("true"));
  EXPECT_TRUE(FlagFrom(" true "));
  EXPECT_TRUE(FlagFrom("untrue"));
}

TEST(IniFlagTest, EverythingElseIsOff) {
  for (const char* value : {"", "false", "1", "True", "TRUE", "tru e"}) {
    EXPECT_FALSE(FlagFrom(value)) << value;
  }
}

}  // namespace
}  // namespace ferolin
