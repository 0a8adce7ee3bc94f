#include <fstream>

#include "base/Cp1251.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

// Code page 1251 in every language.
constexpr Cp1251Text SPEED_COMMENT = u"Настройки виджета полноэкранной скорости";
constexpr Cp1251Text SATELLITES_COMMENT = u"Настройки виджета спутников";
constexpr Cp1251Text SPEED_CHART_COMMENT = u"Настройки виджета графика скорости";
constexpr Cp1251Text SPEEDOMETER_COMMENT = u"Настройки виджета спидометра";
constexpr Cp1251Text PATH_COMMENT = u"Настройки виджета пройденного пути";

std::string Comment(const Cp1251Text& text) {
  return std::string("Comment=") + text.Get();
}

class ViewSettingsTest : public ViewTest {
 protected:
  /// Lines of a section of the saved file, without the blank before each line.
  std::vector<std::string> SavedSection(const std::string& section) {
    engine->Shutdown();
    std::ifstream file(folder.Path("TachyMo.ini"));
    std::vector<std::string> lines;
    bool inside = false;
    for (std::string line; std::getline(file, line);) {
      line = line.substr(1);
      if (line.starts_with('[')) {
        inside = line == '[' + section + ']';
      } else if (inside) {
        lines.push_back(line);
      }
    }
    return lines;
  }
};

// A new key goes to the top of its section: keys stand in the reverse of the order of saving.

TEST_F(ViewSettingsTest, SaveTheDefaultsOfTheFullScreenSpeed) {
  Load();
  EXPECT_EQ((std::vector<std::string>{
                "TimeTextColor=8453888",
                "SpeedTextColor=16777215",
                "BackGroundColor=0",
                Comment(SPEED_COMMENT),
            }),
            SavedSection("FullScreenSpeedWidget"));
}

TEST_F(ViewSettingsTest, SaveTheDefaultsOfTheSpeedometer) {
  Load();
  EXPECT_EQ((std::vector<std::string>{
                "ClockFontSize=32",
                "SpeedFontSize=40",
                "OdomerFontSize=28",
                "FastestFontSize=14",
                "AccelFontSize=18",
                "ClockTextFontName=LCD",
                "SpeedTextFontName=LCD",
                "OdomerTextFontName=Times New Roman",
                "FastestTextFontName=Times New Roman",
                "AccelTextFontName=Times New Roman",
                "ClockTextColor=8453888",
                "SouthArrowColor=255",
                "NorthArrowColor=16711680",
                "FastestColor=8453888",
                "AccelTextColor=65408",
                "OdomerTextColor=16711935",
                "AvgSpeedArrowColor=65280",
                "MaxSpeedArrowColor=255",
                "SpeedTextColor=16776960",
                "SpeedArrowColor=255",
                "BackGroundColor=0",
                Comment(SPEEDOMETER_COMMENT),
            }),
            SavedSection("SpeedometerWidget"));
}

TEST_F(ViewSettingsTest, SaveTheDefaultsOfTheSatellites) {
  Load();
  EXPECT_EQ((std::vector<std::string>{
                "SattelitesNameFontSize=12",
                "SattelitesNameFontName=Times New Roman",
                "MiscLineColor=6316128",
                "ShadowColor=4210752",
                "BorderColor=2105376",
                "HighSignalColor=49152",
                "MidSignalColor=65535",
                "LowSignalColor=255",
                "SattelitesNameColor=0",
                "BackGroundColor=12632256",
                Comment(SATELLITES_COMMENT),
            }),
            SavedSection("SattelitesWidget"));
}

TEST_F(ViewSettingsTest, SaveTheDefaultsOfThePath) {
  Load();
  EXPECT_EQ((std::vector<std::string>{
                "BigTextFontName=LCD",
                "MidTextFontName=LCD",
                "SmallTextFontName=Times New Roman",
                "BigTextSize=30",
                "MidTextSize=20",
                "SmallTextSize=13",
                "StartPointColor=255",
                "EndPointColor=255",
                "BigTimeTextColor=8453888",
                "MidTimeTextColor=8453888",
                "SmallTimeTextColor=16777215",
                "PathColor=16776960",
                "BackGroundColor=0",
                "BorderColor=6316128",
                Comment(PATH_COMMENT),
            }),
            SavedSection("PathWidget"));
}

TEST_F(ViewSettingsTest, SaveTheDefaultsOfTheSpeedChart) {
  Load();
  EXPECT_EQ((std::vector<std::string>{
                "BigTextFontName=Times New Roman",
                "SmallTextFontName=Times New Roman",
                "BigTextSize=30",
                "SmallTextSize=13",
                "AxesColor=16776960",
                "BigTextColor=16776960",
                "SmallTextColor=16777215",
                "MaxSpeedLineColor=65535",
                "CurSpeedLineColor=16711935",
                "ChartColor=8453888",
                "BackGroundColor=0",
                "BorderColor=6316128",
                Comment(SPEED_CHART_COMMENT),
            }),
            SavedSection("SpeedChartWidget"));
}

TEST_F(ViewSettingsTest, ReplaceOnlyWhatTheFileHolds) {
  folder.Write("Tachymo.ini",
               "[FullScreenSpeedWidget]\n"
               "SpeedTextColor=65535\n"
               "TimeTextColor=\n");
  Load();
  EXPECT_EQ((std::vector<std::string>{
                "BackGroundColor=0",
                Comment(SPEED_COMMENT),
                "SpeedTextColor=65535",
                "TimeTextColor=8453888",
            }),
            SavedSection("FullScreenSpeedWidget"));
}

TEST_F(ViewSettingsTest, KeepFacesAndSizes) {
  folder.Write("Tachymo.ini",
               "[SpeedometerWidget]\n"
               "SpeedTextFontName=Arial\n"
               "SpeedFontSize=44\n"
               "NorthArrowColor=1\n");
  Load();
  const std::vector<std::string> saved = SavedSection("SpeedometerWidget");
  for (const char* line : {"SpeedTextFontName=Arial", "SpeedFontSize=44", "NorthArrowColor=1",
                           "ClockTextFontName=LCD", "SouthArrowColor=255"}) {
    EXPECT_NE(saved.end(), std::find(saved.begin(), saved.end(), line)) << line;
  }
}

TEST_F(ViewSettingsTest, CutSizesThatNoScreenHas) {
  folder.Write("Tachymo.ini",
               "[SpeedometerWidget]\n"
               "SpeedFontSize=2147483647\n"
               "ClockFontSize=-2147483648\n"
               "OdomerFontSize=32767\n");
  Load();
  const std::vector<std::string> saved = SavedSection("SpeedometerWidget");
  for (const char* line : {"SpeedFontSize=32767", "ClockFontSize=-32767", "OdomerFontSize=32767"}) {
    EXPECT_NE(saved.end(), std::find(saved.begin(), saved.end(), line)) << line;
  }
}

TEST_F(ViewSettingsTest, KeepWhatTheFileHoldsForTheSatellites) {
  folder.Write("Tachymo.ini",
               "[SattelitesWidget]\n"
               "LowSignalColor=1\n"
               "SattelitesNameFontSize=\n"
               "SattelitesNameFontName=Arial\n");
  Load();
  const std::vector<std::string> saved = SavedSection("SattelitesWidget");
  for (const char* line : {"LowSignalColor=1", "MidSignalColor=65535", "SattelitesNameFontSize=12",
                           "SattelitesNameFontName=Arial"}) {
    EXPECT_NE(saved.end(), std::find(saved.begin(), saved.end(), line)) << line;
  }
}

TEST_F(ViewSettingsTest, ColourTheView) {
  folder.Write("Tachymo.ini", "[FullScreenSpeedWidget]\nBackGroundColor=16711680\n");
  Open(240, 320);
  Drive("120000", 50);
  ShowBars(FEROLIN_VIEW_FULL_SCREEN_SPEED, false);
  Draw(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  EXPECT_EQ(RGB(0, 0, 255), ShownAt(120, 319));
}

}  // namespace

}  // namespace ferolin
