#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <set>

#include "TestFolder.h"
#include "web/AccessKeys.h"

namespace host {
namespace {

class AccessKeysTest : public testing::Test {
 protected:
  AccessKeys Make() const { return AccessKeys(folder.GetPath()); }

  std::string GetFile() const { return folder.GetPath() + "/" + AccessKeys::FILE_NAME; }

  void WriteFile(const std::string& content, mode_t mode = 0600) const {
    std::ofstream(GetFile()) << content;
    chmod(GetFile().c_str(), mode);
  }

  TestFolder folder;
};

/// 5 bits in each of 24 letters. One of the 32 letters is missing in 2,400 with a chance of 1e-31.
TEST_F(AccessKeysTest, HaveAHundredAndTwentyBits) {
  std::set<std::string> keys;
  std::set<char> letters;
  for (int i = 0; i < 50; ++i) {
    const TestFolder home;
    const AccessKeys made(home.GetPath());
    for (const std::string& key : {made.GetLookKey(), made.GetControlKey()}) {
      EXPECT_EQ(24u, key.size());
      keys.insert(key);
      letters.insert(key.begin(), key.end());
    }
  }
  EXPECT_EQ(100u, keys.size());
  EXPECT_EQ(32u, letters.size());
}

TEST_F(AccessKeysTest, OpenNothingButTheirOwnRole) {
  const AccessKeys keys = Make();
  EXPECT_EQ(Role::LOOK, keys.FindRole(keys.GetLookKey()));
  EXPECT_EQ(Role::CONTROL, keys.FindRole(keys.GetControlKey()));
  for (const std::string& key : {keys.GetLookKey(), keys.GetControlKey()}) {
    for (const std::string& wrong :
         {std::string(), key.substr(1), key.substr(0, 23), key + "a", key + key, "b" + key}) {
      EXPECT_EQ(Role::NONE, keys.FindRole(wrong)) << wrong;
    }
    for (std::size_t i = 0; i < key.size(); ++i) {
      std::string wrong = key;
      wrong[i] = wrong[i] == 'a' ? 'b' : 'a';
      EXPECT_EQ(Role::NONE, keys.FindRole(wrong)) << wrong;
    }
  }
}

TEST_F(AccessKeysTest, AreKeptForTheirOwnerOnly) {
  const AccessKeys keys = Make();
  EXPECT_EQ(keys.GetLookKey(), Make().GetLookKey());
  EXPECT_EQ(keys.GetControlKey(), Make().GetControlKey());
  for (const mode_t mode : {0604, 0640, 0620}) {
    chmod(GetFile().c_str(), mode);
    EXPECT_NE(keys.GetLookKey(), Make().GetLookKey()) << std::oct << mode;
    struct stat status = {};
    ASSERT_EQ(0, stat(GetFile().c_str(), &status));
    EXPECT_EQ(0600u, status.st_mode & 0777u);
    WriteFile("look " + keys.GetLookKey() + "\ncontrol " + keys.GetControlKey() + "\n");
  }
}

TEST_F(AccessKeysTest, AreMadeAnewWhenTheFileIsDamaged) {
  const std::string one(24, 'a');
  const std::string other(24, 'b');
  WriteFile("look " + one + "\ncontrol " + other + "\n");
  EXPECT_EQ(one, Make().GetLookKey());
  for (const std::string& damaged :
       {std::string(), "look " + one, "look " + one + "\ncontrol " + one,
        "look a\ncontrol " + other, "look " + one + "\ncontrol " + other + "a",
        "look " + std::string(24, '!') + "\ncontrol " + other,
        "control " + one + "\nlook " + other}) {
    WriteFile(damaged);
    const AccessKeys keys = Make();
    EXPECT_NE(one, keys.GetLookKey()) << damaged;
    EXPECT_NE(other, keys.GetControlKey()) << damaged;
    EXPECT_EQ(Role::NONE, keys.FindRole(one)) << damaged;
  }
}

}  // namespace
}  // namespace host
