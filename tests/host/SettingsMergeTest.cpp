#include <gtest/gtest.h>

#include "run/SettingsMerge.h"

namespace host {
namespace {

TEST(SettingsMergeTest, KeysThatOnlyTheOlderFileHasAreAddedBelowTheirSection) {
  EXPECT_EQ("[SMS]\nText=a\n[Events]\nLimit1=50\nLimit2=90\n[SMS]\nInterval=5\n",
            AddMissingSettings("[SMS]\nText=a\n",
                               "[Events]\nLimit1=50\nLimit2=90\n[SMS]\nText=b\nInterval=5\n"));
}

TEST(SettingsMergeTest, SettingsThatAreAlikeStayAsTheyAre) {
  EXPECT_EQ("; mine\n [SMS]\r\n Text=a\r\n",
            AddMissingSettings("; mine\n [SMS]\r\n Text=a\r\n", "# other\n[SMS]\nText=b\n"));
  EXPECT_EQ("", AddMissingSettings("", ""));
}

TEST(SettingsMergeTest, TheSameKeyOfAnotherSectionIsAnother) {
  EXPECT_EQ("[A]\nk=1\n[B]\nk=2\n", AddMissingSettings("[A]\nk=1\n", "[B]\nk=2\n"));
}

TEST(SettingsMergeTest, KeysAboveTheFirstSectionGetOneWithoutAName) {
  EXPECT_EQ("[A]\nk=1\n[]\nk=2\n", AddMissingSettings("[A]\nk=1\n", "k=2\n"));
}

TEST(SettingsMergeTest, ALastLineWithoutAnEndStaysApart) {
  EXPECT_EQ("[A]\nk=1\n[B]\nk=2\n", AddMissingSettings("[A]\nk=1", "[B]\nk=2"));
}

TEST(SettingsMergeTest, KeysThatAreCommentedOutCount) {
  EXPECT_EQ("[A]\n#k=1\n[A]\n;l=2\n", AddMissingSettings("[A]\n#k=1\n", "[A]\nk=3\n;l=2\n"));
}

TEST(SettingsMergeTest, OfAKeyThatIsThereTwiceTheFirstCounts) {
  EXPECT_EQ("[A]\nk=1\n", AddMissingSettings("", "[A]\nk=1\nk=2\n"));
}

}  // namespace
}  // namespace host
