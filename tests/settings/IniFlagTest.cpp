#include <gtest/gtest.h>

#include "settings/IniFlag.h"

namespace ferolin {
namespace {

TEST(IniFlagTest, FlagsAreWrittenAsWords) {
  EXPECT_EQ(FlagText(true), "true");
  EXPECT_EQ(FlagText(false), "false");
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
