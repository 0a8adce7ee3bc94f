#include <gtest/gtest.h>

#include <algorithm>

#include "gdi/RegisteredFonts.h"
#include "handheld.h"
#include "support/TempFolder.h"

namespace {

using testing_support::TempFolder;

TEST(Fonts, MustExist) {
  const TempFolder folder;
  EXPECT_EQ(0, AddFontResourceW(folder.DevicePath("none.ttf").c_str()));
  EXPECT_FALSE(RemoveFontResourceW(folder.DevicePath("none.ttf").c_str()));
  EXPECT_EQ(0, AddFontResourceW(nullptr));
}

TEST(Fonts, AreNamedWhenTheyAreMissing) {
  const TempFolder folder;
  EXPECT_EQ(0, AddFontResourceW(folder.DevicePath("missing.ttf").c_str()));
  EXPECT_EQ(0, AddFontResourceW(folder.DevicePath("missing.ttf").c_str()));
  const std::vector<std::string> files = handheld::UnreadableFiles();
  EXPECT_EQ(1, std::ranges::count(files, folder.Path("missing.ttf")));
}

TEST(Fonts, GoWhenRemovedAsOftenAsAdded) {
  const TempFolder folder;
  folder.Write("lcd-u.ttf", "");
  const std::u16string path = folder.DevicePath("LCD-U.ttf");
  EXPECT_EQ(1, AddFontResourceW(path.c_str()));
  EXPECT_EQ(1, AddFontResourceW(path.c_str()));
  EXPECT_EQ(std::vector<std::string>{folder.Path("lcd-u.ttf")}, handheld::RegisteredFonts());
  EXPECT_TRUE(RemoveFontResourceW(path.c_str()));
  EXPECT_EQ(1u, handheld::RegisteredFonts().size());
  EXPECT_TRUE(RemoveFontResourceW(path.c_str()));
  EXPECT_TRUE(handheld::RegisteredFonts().empty());
  EXPECT_FALSE(RemoveFontResourceW(path.c_str()));
}

}  // namespace
