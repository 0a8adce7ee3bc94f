#include <gtest/gtest.h>

#include <fstream>

#include "TestFolder.h"
#include "base/TopicName.h"
#include "mqtt/BoxId.h"

namespace host {
namespace {

TEST(BoxId, IsMadeOnceAndKept) {
  const TestFolder folder;
  const TestFolder other;
  const std::string id = ChooseBoxId("", folder.GetPath());
  EXPECT_EQ(8u, id.size());
  EXPECT_TRUE(IsTopicName(id));
  EXPECT_EQ(id, ChooseBoxId("", folder.GetPath()));
  EXPECT_NE(id, ChooseBoxId("", other.GetPath()));
}

TEST(BoxId, IsTheOneAskedForAndKept) {
  const TestFolder folder;
  EXPECT_EQ("van-7", ChooseBoxId("van-7", folder.GetPath()));
  EXPECT_EQ("van-7", ChooseBoxId("", folder.GetPath()));
  EXPECT_EQ("van-8", ChooseBoxId("van-8", folder.GetPath()));
  EXPECT_EQ("van-8", ChooseBoxId("", folder.GetPath()));
}

TEST(BoxId, IsMadeAnewWhenTheFileHasNone) {
  const TestFolder folder;
  std::ofstream(folder.GetPath() + "/mqtt-id") << "a/b\n";
  EXPECT_TRUE(IsTopicName(ChooseBoxId("", folder.GetPath())));
}

TEST(TopicName, HasLettersDigitsAndNoWildcards) {
  EXPECT_TRUE(IsTopicName("Van_7-b"));
  EXPECT_TRUE(IsTopicName(std::string(64, 'a')));
  for (const char* name : {"", "a/b", "a+", "#", "a b", "\xC3\xA4"}) {
    EXPECT_FALSE(IsTopicName(name)) << name;
  }
  EXPECT_FALSE(IsTopicName(std::string(65, 'a')));
}

}  // namespace
}  // namespace host
