#include <gtest/gtest.h>

#include "files/Paths.h"
#include "handheld.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

TEST(Paths, DeviceSpellingHasBackslashes) {
  EXPECT_EQ(u"\\media\\Pics", handheld::DevicePath("/media/Pics"));
  EXPECT_EQ("/media/Pics", handheld::LinuxPath(u"\\media\\Pics"));
  EXPECT_EQ("/дом", handheld::LinuxPath(u"\\дом"));
}

TEST(Paths, AreFoundWithoutRegardToCase) {
  const TempFolder folder;
  folder.Write("Pics/GPS-0.png", "");
  const auto location = handheld::Locate(folder.Path("PICS/gps-0.PNG"));
  EXPECT_TRUE(location.exists);
  EXPECT_EQ(folder.Path("Pics/GPS-0.png"), location.path);
}

TEST(Paths, IgnoreTheCaseOfCyrillicToo) {
  const TempFolder folder;
  folder.Write("Звук.wav", "");
  EXPECT_EQ(folder.Path("Звук.wav"), handheld::Locate(folder.Path("зВУК.WAV")).path);
}

TEST(Paths, PreferTheExactSpelling) {
  const TempFolder folder;
  folder.Write("A.txt", "");
  folder.Write("a.txt", "");
  EXPECT_EQ(folder.Path("a.txt"), handheld::Locate(folder.Path("a.txt")).path);
  EXPECT_EQ(folder.Path("A.txt"), handheld::Locate(folder.Path("A.txt")).path);
}

TEST(Paths, KeepTheSpellingOfWhatIsMissing) {
  const TempFolder folder;
  folder.Write("Tracks/x", "");
  const auto location = handheld::Locate(folder.Path("tracks/New.KML"));
  EXPECT_FALSE(location.exists);
  EXPECT_TRUE(location.folderExists);
  EXPECT_EQ(folder.Path("Tracks/New.KML"), location.path);
}

TEST(Paths, TellAMissingFileFromAMissingFolder) {
  const TempFolder folder;
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, handheld::Locate(folder.Path("none")).GetMissingError());
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, handheld::Locate(folder.Path("none/none")).GetMissingError());
}

TEST(Paths, AFileIsNoFolder) {
  const TempFolder folder;
  folder.Write("file", "");
  const auto location = handheld::Locate(folder.Path("file/below"));
  EXPECT_FALSE(location.exists);
  EXPECT_FALSE(location.folderExists);
}

TEST(Paths, TrailingSlashesDoNotMatter) {
  const TempFolder folder;
  EXPECT_TRUE(handheld::Locate(folder.Path() + "//").exists);
  EXPECT_TRUE(handheld::Locate("/").exists);
}

}  // namespace
