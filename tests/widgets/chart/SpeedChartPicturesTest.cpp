// The speed chart, compared with pictures that were looked at.

#include <functional>

#include "base/Format.h"
#include "gps/FixRecord.h"
#include "widgets/Golden.h"
#include "widgets/PictureLanguage.h"
#include "widgets/ViewTest.h"

namespace ferolin {

namespace {

/// A speed reached at an even rate in that many seconds.
struct Leg {
  int seconds;
  float kmh;
};

constexpr Leg LEGS[] = {
    {20, 0},  {14, 50}, {40, 53}, {10, 0},  {25, 0}, {12, 60}, {60, 57}, {8, 30},  {15, 33},
    {20, 88}, {90, 95}, {25, 62}, {30, 64}, {18, 0}, {20, 0},  {14, 48}, {35, 46}, {9, 71},
};

class SpeedChartPictures : public ViewTest {
 protected:
  SpeedChartPictures() : ViewTest(GetPictureLanguage()) {}

  /// A drive through town and country from 14:30 on. Speeds are multiplied by the factor.
  void DriveFor(int seconds, float factor = 1) {
    float kmh = 0;
    for (int second = 0;;) {
      for (const Leg& leg : LEGS) {
        const float start = kmh;
        for (int step = 1; step <= leg.seconds; ++step) {
          if (second == seconds) {
            return;
          }
          kmh = start +
                (leg.kmh - start) * static_cast<float>(step) / static_cast<float>(leg.seconds);
          Append(second++, kmh * factor);
        }
      }
    }
  }

  void Append(int second, float kmh) {
    SYSTEMTIME time = {};
    time.wHour = static_cast<WORD>((14 + (second / 60 + 30) / 60) % 24);
    time.wMinute = static_cast<WORD>((second / 60 + 30) % 60);
    time.wSecond = static_cast<WORD>(second % 60);
    engine->GetFix().GetTrack().Append(
        {100, 3737, 5545, static_cast<float>(second % 360), kmh, time});
  }

  /// Taps the button, in landscape.
  void ZoomOutTo(int zoom) {
    engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_NONE);
    {
      const LockGuard guard(engine->GetDataLock());
      View(FEROLIN_VIEW_SPEED_CHART).Attach();
    }
    for (int reached = 1; reached < zoom; reached *= 2) {
      ShowBars(FEROLIN_VIEW_SPEED_CHART, true);
      // 320 x 240: two columns of four, the second button of the inner one.
      View(FEROLIN_VIEW_SPEED_CHART).OnMouseUp(window, {243, 150});
    }
  }

  void Expect(const std::string& name, bool withBars = false) {
    {
      const LockGuard guard(engine->GetDataLock());
      View(FEROLIN_VIEW_SPEED_CHART).Attach();
    }
    ShowBars(FEROLIN_VIEW_SPEED_CHART, withBars);
    Draw(FEROLIN_VIEW_SPEED_CHART);
    ExpectGolden((IS_RUSSIAN ? "russian-speed-chart-" : "speed-chart-") + name, Shown());
  }
};

using Size = std::pair<int, int>;

class SpeedChartPicturesOfSize : public SpeedChartPictures,
                                 public testing::WithParamInterface<Size> {};

TEST_P(SpeedChartPicturesOfSize, Match) {
  const auto [width, height] = GetParam();
  Open(width, height);
  DriveFor(400);
  Expect(Format("%ix%i", width, height));
}

INSTANTIATE_TEST_SUITE_P(Sizes, SpeedChartPicturesOfSize,
                         testing::ValuesIn(IS_RUSSIAN ? std::vector<Size>{{240, 320}}
                                                      : std::vector<Size>{{240, 320},
                                                                          {320, 240},
                                                                          {480, 640},
                                                                          {640, 480},
                                                                          {480, 800},
                                                                          {800, 480}}));

class SpeedChartPicturesOfZoom : public SpeedChartPictures,
                                 public testing::WithParamInterface<int> {};

TEST_P(SpeedChartPicturesOfZoom, Match) {
  Open(320, 240);
  DriveFor(20000);
  ZoomOutTo(GetParam());
  Expect(Format("zoom-%i", GetParam()));
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(SpeedChartPicturesOfZoom);
INSTANTIATE_TEST_SUITE_P(All, SpeedChartPicturesOfZoom,
                         testing::ValuesIn(IS_RUSSIAN ? std::vector<int>()
                                                      : std::vector<int>{2, 4, 128}));

/// No point, one point, and the scales that the drive does not reach.
TEST_F(SpeedChartPictures, MatchAtTheExtremes) {
  if (IS_RUSSIAN) {
    GTEST_SKIP() << "the words are in the other pictures";
  }
  Open(240, 320);
  Expect("empty");
  Append(0, 12);
  Expect("one-point");
  DriveFor(180, 0.2F);
  Expect("scale-20");
  DriveFor(400, 0.5F);
  Expect("scale-50");
  DriveFor(400, 2.3F);
  Expect("scale-200", true);
}

}  // namespace

}  // namespace ferolin
