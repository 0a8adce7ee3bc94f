// Themes: chosen on the page of the picture, in the settings file from the next start on.

#include <algorithm>
#include <fstream>
#include <iterator>

#include "ApplicationTest.h"
#include "drawing/Theme.h"

namespace app {

namespace {

class Themes : public ApplicationTest {
 protected:
  Themes() {
    for (const char* name : {"themes/standard.ini", "themes/day.ini", "themes/night.ini"}) {
      std::ifstream file(std::string(ASSETS_FOLDER "/") + name, std::ios::binary);
      device->WriteFile(name, std::string(std::istreambuf_iterator<char>(file), {}));
    }
  }

  /// Chooses it on the page of the picture and quits.
  void Choose(int row) {
    Start();
    OpenPage(rows::PICTURE);
    TapRow(row);
    Quit();
  }

  /// Colour of the path after the next run, as the settings file has it.
  std::string GetPathColorOfNextRun() {
    Start();
    Quit();
    const std::string settings = ReadIni();
    const std::size_t start = settings.find("PathColor=");
    return start == std::string::npos ? ""
                                      : settings.substr(start, settings.find('\n', start) - start);
  }
};

TEST_F(Themes, ComeWithTheNextStart) {
  EXPECT_EQ("PathColor=16776960", GetPathColorOfNextRun());
  Choose(rows::DAY);
  EXPECT_EQ("PathColor=11534336", GetPathColorOfNextRun());
  EXPECT_EQ("PathColor=11534336", GetPathColorOfNextRun());
  Choose(rows::NIGHT);
  EXPECT_EQ("PathColor=30928", GetPathColorOfNextRun());
  Choose(rows::STANDARD);
  EXPECT_EQ("PathColor=16776960", GetPathColorOfNextRun());
}

TEST_F(Themes, AreMarkedWhenChosen) {
  // A row, like the header, is 48 pixels high; its mark lies at its right end.
  const auto isMarked = [this](int row) {
    const e2e::Device::Picture picture = GetPicture();
    for (int y = 48 * (row + 1); y < 48 * (row + 2); ++y) {
      const auto end = picture.pixels.begin() + (y + 1) * picture.width;
      if (std::find(end - 48, end, DARK_THEME.accent) != end) {
        return true;
      }
    }
    return false;
  };
  Start();
  OpenPage(rows::PICTURE);
  EXPECT_TRUE(isMarked(rows::STANDARD));
  TapRow(rows::NIGHT);
  EXPECT_FALSE(isMarked(rows::STANDARD));
  EXPECT_TRUE(isMarked(rows::NIGHT));
  Quit();
  Start();
  OpenPage(rows::PICTURE);
  EXPECT_TRUE(isMarked(rows::NIGHT));
}

TEST_F(Themes, LeaveColoursThatWereChangedByHandSince) {
  Choose(rows::DAY);
  std::string settings = ReadIni();
  settings.replace(settings.find("PathColor=11534336"), 18, "PathColor=65535");
  device->WriteFile("TachyMo.ini", settings);
  EXPECT_EQ("PathColor=65535", GetPathColorOfNextRun());
}

TEST_F(Themes, KeepTheRestOfTheSettings) {
  device->WriteFile(
      "TachyMo.ini",
      "# mine\n[Application]\nTheme=day\nThemeTaken=\nPort=COM7\n; own\n[Other]\nKey=1\n");
  Start();
  Quit();
  const std::string settings = ReadIni();
  EXPECT_NE(std::string::npos, settings.find("PathColor=11534336"));
  for (const char* kept :
       {"# mine\n [Application]\n", " Port=COM7\n", "; own\n [Other]\n Key=1\n"}) {
    EXPECT_NE(std::string::npos, settings.find(kept)) << settings;
  }
}

TEST_F(Themes, ThatAreMissingChangeNothing) {
  device->WriteFile("TachyMo.ini", "[Application]\nTheme=dusk\n");
  EXPECT_EQ("PathColor=16776960", GetPathColorOfNextRun());
  EXPECT_FALSE(device->Exists("themes/dusk.ini"));
}

}  // namespace

}  // namespace app
