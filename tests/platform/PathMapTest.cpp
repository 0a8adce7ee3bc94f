#include <gtest/gtest.h>
#include <windows.h>

#include "files/PathMap.h"
#include "handheld.h"
#include "support/TempFolder.h"

namespace {

using handheld::PathMap;
using testing_support::TempFolder;

TEST(PathMapTest, WithoutAMappingOnlyTheSlashesDiffer) {
  const PathMap map;
  EXPECT_EQ(u"\\media\\Pics", map.ToDevice("/media/Pics"));
  EXPECT_EQ("/media/Pics", map.ToLinux(u"\\media\\Pics"));
}

TEST(PathMapTest, AMappedFolderAndWhatLiesBelowHaveTheOtherName) {
  PathMap map;
  map.Set(u"\\Ferolin", "/home/名前");
  EXPECT_EQ("/home/名前", map.ToLinux(u"\\Ferolin"));
  EXPECT_EQ("/home/名前/Pics/a.png", map.ToLinux(u"\\Ferolin\\Pics\\a.png"));
  EXPECT_EQ(u"\\Ferolin", map.ToDevice("/home/名前"));
  EXPECT_EQ(u"\\Ferolin\\Pics\\a.png", map.ToDevice("/home/名前/Pics/a.png"));
}

TEST(PathMapTest, TheMappedLinuxPathKeepsItsBytes) {
  PathMap map;
  map.Set(u"\\Ferolin", "/home/a\\b\xFF");
  EXPECT_EQ("/home/a\\b\xFF/x", map.ToLinux(u"\\Ferolin\\x"));
  EXPECT_EQ(u"\\Ferolin\\x", map.ToDevice("/home/a\\b\xFF/x"));
}

TEST(PathMapTest, ALongerNameThatBeginsAlikeIsAnother) {
  PathMap map;
  map.Set(u"\\Ferolin", "/home");
  EXPECT_EQ("/Ferolins/x", map.ToLinux(u"\\Ferolins\\x"));
  EXPECT_EQ(u"\\homes\\x", map.ToDevice("/homes/x"));
}

TEST(PathMapTest, LetterCaseOfDeviceNamesDoesNotMatter) {
  PathMap map;
  map.Set(u"\\Ferolin", "/Home");
  EXPECT_EQ("/Home/X", map.ToLinux(u"\\FEROLIN\\X"));
  EXPECT_EQ(u"\\home\\x", map.ToDevice("/home/x"));
}

TEST(PathMapTest, TheInnermostMappingHolds) {
  PathMap map;
  map.Set(u"\\Ferolin\\Tachymo.ini", "/aside/settings");
  map.Set(u"\\Ferolin", "/home");
  map.Set(u"\\Tracks", "/home/Tracks");
  EXPECT_EQ("/aside/settings", map.ToLinux(u"\\Ferolin\\TachyMo.ini"));
  EXPECT_EQ("/home/TachyMo.ini.new", map.ToLinux(u"\\Ferolin\\TachyMo.ini.new"));
  EXPECT_EQ(u"\\Tracks\\a.kml", map.ToDevice("/home/Tracks/a.kml"));
}

TEST(PathMapTest, AMappingIsReplacedAndRemoved) {
  PathMap map;
  map.Set(u"\\Ferolin", "/one");
  map.Set(u"\\FEROLIN", "/two");
  EXPECT_EQ("/two", map.ToLinux(u"\\Ferolin"));
  EXPECT_EQ(u"\\one", map.ToDevice("/one"));
  map.Set(u"\\Ferolin", "");
  EXPECT_EQ("/Ferolin", map.ToLinux(u"\\Ferolin"));
}

TEST(PathMapTest, CallsOfTheDeviceReachMappedFolders) {
  const TempFolder folder;
  folder.Write("a\\b/File.txt", "content");
  handheld::MapPath(u"\\Ferolin", folder.Path("a\\b"));
  const HANDLE file = CreateFileW(u"\\Ferolin\\file.TXT", GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(INVALID_HANDLE_VALUE, file);
  CloseHandle(file);
  EXPECT_TRUE(MoveFileW(u"\\Ferolin\\file.txt", u"\\Ferolin\\Moved.txt"));
  EXPECT_TRUE(CreateDirectoryW(u"\\Ferolin\\Tracks", nullptr));
  handheld::MapPath(u"\\Ferolin", "");
  EXPECT_EQ("content", folder.Read("a\\b/Moved.txt"));
  EXPECT_TRUE(folder.Has("a\\b/Tracks"));
}

}  // namespace
