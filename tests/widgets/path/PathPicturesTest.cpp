// The path, compared with pictures that were looked at. The same ones in both languages: its words
// are English.

#include <utility>

#include "base/Format.h"
#include "gps/FixRecord.h"
#include "widgets/Golden.h"
#include "widgets/PictureLanguage.h"
#include "widgets/ViewTest.h"
#include "widgets/path/PathTrack.h"

namespace ferolin {

namespace {

/// Offsets from the start, in thousandths of a minute, with the seconds that it takes to get there.
struct Waypoint {
  int north, east, seconds;
};

/// Out of town, around a lake and nearly back again.
constexpr Waypoint ROUTE[] = {
    {0, 0, 0},        {400, 120, 60},   {900, 100, 50},   {1000, 700, 80},   {1500, 900, 60},
    {2300, 1000, 90}, {2600, 1500, 60}, {3200, 1700, 70}, {3900, 2600, 110}, {4000, 3600, 90},
    {3600, 4500, 90}, {2900, 4700, 70}, {2300, 4200, 75}, {2400, 3300, 80},  {2600, 1500, 150},
    {2300, 1000, 60}, {1500, 900, 90},  {1000, 700, 60},  {300, 800, 70},    {150, 1300, 60},
    {-300, 1400, 50},
};

class PathPictures : public ViewTest {
 protected:
  PathPictures() : ViewTest(GetPictureLanguage()) {}

  void Add(const TrackPoint& point) { engine->GetFix().GetTrack().Append(point); }

  void DriveRoute() {
    int second = 12 * 3600;
    for (std::size_t leg = 1; leg < std::size(ROUTE); ++leg) {
      const Waypoint& from = ROUTE[leg - 1];
      const Waypoint& to = ROUTE[leg];
      for (int step = 0; step < to.seconds; ++step) {
        const float part = static_cast<float>(step) / static_cast<float>(to.seconds);
        Add(PathPointAt(5540 + (from.north + part * (to.north - from.north)) / 1000.0F,
                        3730 + (from.east + part * (to.east - from.east)) / 1000.0F, 46, second++));
      }
    }
    Tell("122536", 46.3);
  }

  /// What the sensors tell, without a position of its own.
  void Tell(const std::string& time, double kmh) {
    const TrackPoint last = *engine->GetFix().GetPoint(engine->GetFix().GetPointCount() - 1);
    engine->GetRedraw().SetCurRenderWidget(-1);
    engine->OnUpdate(Format("$GPRMC,%s,A,%.4f,N,%.4f,E,%.4f,0.0,010324,,*00", time, last.latitude,
                            last.longitude, kmh / 1.852)
                         .c_str());
    engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_PATH);
  }

  void Expect(const std::string& name, bool withBars = false) {
    ShowBars(FEROLIN_VIEW_PATH, withBars);
    Draw(FEROLIN_VIEW_PATH);
    ExpectGolden("path-" + name, Shown());
  }

  void Tap(int x, int y) {
    ShowBars(FEROLIN_VIEW_PATH, true);
    engine->GetRedraw().SetCurRenderWidget(-1);
    View(FEROLIN_VIEW_PATH).OnMouseDown(window, {x, y});
    View(FEROLIN_VIEW_PATH).OnMouseUp(window, {x, y});
  }
};

class PathPicturesOfSize : public PathPictures,
                           public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(PathPicturesOfSize, Match) {
  const auto [width, height] = GetParam();
  Open(width, height);
  DriveRoute();
  Expect(Format("%ix%i", width, height));
}

INSTANTIATE_TEST_SUITE_P(Sizes, PathPicturesOfSize,
                         testing::Values(std::pair(240, 320), std::pair(320, 240),
                                         std::pair(480, 640), std::pair(640, 480),
                                         std::pair(480, 800), std::pair(800, 480)));

class PathPicturesAtTheirLongest : public PathPicturesOfSize {};

/// Twelve days and a second less than 24 hours, at a speed that makes nearly 100,000 km.
TEST_P(PathPicturesAtTheirLongest, Match) {
  const auto [width, height] = GetParam();
  Open(width, height);
  Add(PathPointAt(5540, 3730, 320.5F, 0));
  Add(PathPointAt(5545, 3735, 320.5F, 13 * 86400 - 1));
  Tell("235959", 220);
  Expect(Format("longest-%ix%i", width, height));
}

INSTANTIATE_TEST_SUITE_P(Sizes, PathPicturesAtTheirLongest,
                         testing::Values(std::pair(176, 220), std::pair(240, 320),
                                         std::pair(320, 240), std::pair(480, 640),
                                         std::pair(640, 480)));

TEST_F(PathPictures, MatchWithBars) {
  Open(240, 320);
  DriveRoute();
  Expect("bars-240x320", true);
  Open(320, 240);
  Tell("122537", 46);
  Expect("bars-320x240", true);
}

TEST_F(PathPictures, MatchZoomedAndCentred) {
  Open(320, 240);
  DriveRoute();
  Draw(FEROLIN_VIEW_PATH);
  // The right edge from the bottom up: centre, automatic zoom, zoom in, zoom out.
  Tap(243, 150);
  Tap(243, 150);
  Tap(243, 30);
  Expect("zoomed-320x240");
}

TEST_F(PathPictures, MatchDragged) {
  Open(240, 320);
  DriveRoute();
  Draw(FEROLIN_VIEW_PATH);
  engine->GetRedraw().SetCurRenderWidget(-1);
  View(FEROLIN_VIEW_PATH).OnMouseDown(window, {120, 100});
  View(FEROLIN_VIEW_PATH).OnMouseMove(window, {190, 40});
  View(FEROLIN_VIEW_PATH).OnMouseUp(window, {190, 40});
  Expect("dragged-240x320");
}

TEST_F(PathPictures, MatchWithoutAPath) {
  Open(240, 320);
  engine->OnUpdate("$GPRMC,000000,V,,,,,,,230324,,*00");
  Expect("none-240x320");
}

}  // namespace

}  // namespace ferolin
