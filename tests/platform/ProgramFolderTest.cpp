#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "handheld.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

class ProgramFolderTest : public testing::Test {
 protected:
  ~ProgramFolderTest() override {
    handheld::SetModuleDirectory("");
    for (const char16_t* mapped :
         {u"\\Ferolin", u"\\Ferolin\\Pics", u"\\Ferolin\\Wav", u"\\Ferolin\\lcd-u.ttf"}) {
      handheld::MapPath(mapped, "");
    }
  }

  TempFolder folder;
};

TEST_F(ProgramFolderTest, HoldsTheFilesOfThisUser) {
  handheld::SetProgramFolder(folder.Path());
  EXPECT_EQ(folder.Path("TachyMo.ini"), handheld::LinuxPath(u"\\Ferolin\\TachyMo.ini"));
  EXPECT_EQ(u"\\Ferolin\\Tracks", handheld::DevicePath(folder.Path("Tracks")));
}

TEST_F(ProgramFolderTest, LeavesPicturesToTheSharedFolder) {
  const std::string shared = handheld::SharedFolder();
  ASSERT_NE("", shared);
  handheld::SetProgramFolder(folder.Path());
  EXPECT_EQ(shared + "/Pics/compass.png", handheld::LinuxPath(u"\\Ferolin\\Pics\\compass.png"));
  EXPECT_EQ(shared + "/Wav/Zero.wav", handheld::LinuxPath(u"\\Ferolin\\wav\\Zero.wav"));
  EXPECT_EQ(shared + "/lcd-u.ttf", handheld::LinuxPath(u"\\Ferolin\\lcd-u.ttf"));
}

TEST_F(ProgramFolderTest, MayHavePicturesOfItsOwn) {
  handheld::SetProgramFolder(folder.Path());
  folder.MakeFolder("Pics");
  handheld::SetProgramFolder(folder.Path());
  EXPECT_EQ(folder.Path("Pics/compass.png"), handheld::LinuxPath(u"\\Ferolin\\Pics\\compass.png"));
  EXPECT_EQ(handheld::SharedFolder() + "/Wav", handheld::LinuxPath(u"\\Ferolin\\Wav"));
}

/// Gives a variable of the environment back at the end of the scope.
class Variable {
 public:
  Variable(const char* name, const char* value) : name(name) {
    const char* const before = std::getenv(name);
    wasSet = before != nullptr;
    old = wasSet ? before : "";
    value == nullptr ? unsetenv(name) : setenv(name, value, 1);
  }
  ~Variable() { wasSet ? setenv(name, old.c_str(), 1) : unsetenv(name); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name;
  std::string old;
  bool wasSet = false;
};

TEST(DataFolderTest, LiesWhereTheEnvironmentSays) {
  const Variable user("HOME", "/home/driver");
  {
    const Variable data("XDG_DATA_HOME", "/data");
    EXPECT_EQ("/data/ferolin", handheld::DataFolder("ferolin"));
  }
  for (const char* none : {"", "relative", static_cast<const char*>(nullptr)}) {
    const Variable data("XDG_DATA_HOME", none);
    EXPECT_EQ("/home/driver/.local/share/ferolin", handheld::DataFolder("ferolin"));
    const Variable nobody("HOME", nullptr);
    EXPECT_EQ("", handheld::DataFolder("ferolin"));
  }
}

}  // namespace
