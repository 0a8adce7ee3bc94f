#include <algorithm>
#include <utility>
#include <vector>

#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "widgets/ViewTest.h"
#include "widgets/chart/SpeedChartWidget.h"

namespace ferolin {

namespace {

using Codes = std::vector<LPARAM>;

constexpr COLORREF CHART_BACKGROUND = RGB(0, 0, 0);
constexpr COLORREF AXES = RGB(0, 255, 255);
constexpr COLORREF CURRENT = RGB(255, 0, 255);
constexpr COLORREF MAXIMUM = RGB(255, 255, 0);
constexpr COLORREF BIG_TEXT = RGB(255, 0, 0);  // set apart from the axes' colour
const COLORREF CHART = Seen(0x0080FF00);
const COLORREF CHART_BORDER = Seen(0x00606060);

// Portrait, 240 x 320: the plot is {15, 25, 225, 305}, which leaves 200 columns. Dashes of 18
// pixels have gaps of 6.

class SpeedChartTest : public ViewTest {
 protected:
  SpeedChartTest() {
    folder.Write("TachyMo.ini", "[SpeedChartWidget]\nBigTextColor=255\n");
    Open(240, 320);
    engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_SPEED_CHART);
    const LockGuard guard(engine->GetDataLock());
    View(FEROLIN_VIEW_SPEED_CHART).Attach();
  }

  /// Appends points of the next seconds, from 12:00:01 on.
  void Append(int count, float kmh) {
    for (int point = 0; point < count; ++point) {
      ++second;
      SYSTEMTIME time = {};
      time.wHour = 12;
      time.wMinute = static_cast<WORD>(second / 60);
      time.wSecond = static_cast<WORD>(second % 60);
      engine->GetFix().GetTrack().Append({100, 3737, 5545, 0, kmh, time});
    }
  }

  void DrawPlain() {
    ShowBars(FEROLIN_VIEW_SPEED_CHART, false);
    Draw(FEROLIN_VIEW_SPEED_CHART);
  }

  int Zoom() const {
    return static_cast<SpeedChartWidget&>(View(FEROLIN_VIEW_SPEED_CHART)).GetZoom();
  }

  /// Codes posted because of a tap.
  Codes Tap(LONG x, LONG y) {
    ShowBars(FEROLIN_VIEW_SPEED_CHART, true);
    TakePosted();
    View(FEROLIN_VIEW_SPEED_CHART).OnMouseDown(window, {x, y});
    View(FEROLIN_VIEW_SPEED_CHART).OnMouseUp(window, {x, y});
    engine->StopCallBack();
    engine->StartCallBack(window);
    return TakePosted();
  }

  // The second line of buttons from below.
  Codes TapZoomIn() { return Tap(210, 243); }
  Codes TapZoomOut() { return Tap(150, 243); }
  Codes TapZoomAuto() { return Tap(90, 243); }

  static bool Has(COLORREF color) {
    const RECT bounds = Bounds(color);
    return bounds.left < bounds.right;
  }

  /// Pixels in the labels' colour beside the vertical axis, below the topmost label.
  static std::vector<std::pair<int, int>> ScalePixels() {
    std::vector<std::pair<int, int>> places;
    for (int y = 30; y < 305; ++y) {
      for (int x = 16; x < 60; ++x) {
        if (FrameAt(x, y) == Seen(0x00FFFFFF)) {
          places.emplace_back(x, y);
        }
      }
    }
    return places;
  }

  int second = 0;
};

TEST_F(SpeedChartTest, IsCalledSpeedChart) {
  EXPECT_STREQ("Speed chart", View(FEROLIN_VIEW_SPEED_CHART).GetName());
}

TEST_F(SpeedChartTest, DrawsAxesAndBorderOfAnEmptyTrack) {
  DrawPlain();
  EXPECT_EQ(AXES, FrameAt(15, 150));
  EXPECT_EQ(AXES, FrameAt(15, 305));
  EXPECT_EQ(AXES, FrameAt(229, 305));
  EXPECT_EQ(CHART_BACKGROUND, FrameAt(230, 305));
  EXPECT_EQ(CHART_BORDER, FrameAt(230, 100));
  EXPECT_EQ(CHART_BORDER, FrameAt(30, 25)) << "in a gap of the topmost grid line";
  EXPECT_FALSE(Has(CHART));
  EXPECT_FALSE(Has(CURRENT));
  EXPECT_FALSE(Has(MAXIMUM));
  EXPECT_FALSE(Has(BIG_TEXT));
}

TEST_F(SpeedChartTest, HasFourGridLinesOnTheSmallestScale) {
  Append(50, 20);
  DrawPlain();
  for (const int row : {235, 165, 95}) {
    EXPECT_EQ(AXES, FrameAt(10, row)) << row;
    EXPECT_EQ(AXES, FrameAt(210, row)) << row;              // 200 % 24 = 8
    EXPECT_EQ(CHART_BACKGROUND, FrameAt(200, row)) << row;  // 190 % 24 = 22
  }
}

TEST_F(SpeedChartTest, KeepsItsScaleReadableWhereTheChartFillsThePlot) {
  DrawPlain();
  const auto labels = ScalePixels();
  ASSERT_FALSE(labels.empty());
  TapZoomOut();
  TapZoomOut();
  for (int pair = 0; pair < 400; ++pair) {
    Append(1, 0);
    Append(1, 20);
  }
  DrawPlain();
  ASSERT_EQ(CHART, FrameAt(17, 170));
  ASSERT_EQ(CHART, FrameAt(59, 280));
  EXPECT_EQ(labels, ScalePixels());
}

TEST_F(SpeedChartTest, DrawsALineOfTwoPixels) {
  Append(100, 10);
  DrawPlain();
  // 305 - 140; the lines of the speeds lie on the lower of the two rows.
  EXPECT_EQ(CHART, FrameAt(20, 164));
  EXPECT_EQ(CHART, FrameAt(113, 164)) << "a hundred columns";
  EXPECT_EQ(CHART_BACKGROUND, FrameAt(20, 163));
  EXPECT_EQ(CHART_BACKGROUND, FrameAt(117, 164));
}

TEST_F(SpeedChartTest, WidensTheScaleForOneFastPointAnywhere) {
  Append(1, 100.5F);
  Append(100, 10);
  DrawPlain();
  EXPECT_EQ(CHART, FrameAt(60, 290)) << "305 - 14";
  EXPECT_NE(CHART, FrameAt(60, 164));
}

TEST_F(SpeedChartTest, ForgetsPointsThatHaveLeftTheView) {
  Append(1, 100.5F);
  Append(200, 10);
  DrawPlain();
  EXPECT_EQ(CHART, FrameAt(60, 164));
}

TEST_F(SpeedChartTest, FillsTwoHundredColumns) {
  Append(500, 10);
  DrawPlain();
  EXPECT_EQ(CHART, FrameAt(213, 164));
  EXPECT_EQ(CHART_BACKGROUND, FrameAt(217, 164));
}

TEST_F(SpeedChartTest, MarksCurrentAndMaximumSpeed) {
  Append(1, 20);
  Append(100, 10);
  DrawPlain();
  EXPECT_EQ(CURRENT, FrameAt(20, 165));
  EXPECT_EQ(CURRENT, FrameAt(113, 165)) << "98 % 24 = 2";
  EXPECT_NE(CURRENT, FrameAt(116, 165)) << "the newest column is 115";
  EXPECT_EQ(MAXIMUM, FrameAt(20, 25));
  EXPECT_EQ(MAXIMUM, FrameAt(220, 25)) << "205 % 24 = 13";
}

/// The line of 15 km/h is row 305 - 210 = 95. Labels beside the axis are less than 30 wide.
TEST_F(SpeedChartTest, PutsTheMaximumAtTheLeftOfItsLine) {
  Append(200, 15);
  DrawPlain();
  int left = 240;
  int right = 0;
  for (int y = 50; y < 94; ++y) {
    for (int x = 0; x < 240; ++x) {
      if (FrameAt(x, y) == MAXIMUM) {
        left = std::min(left, x);
        right = std::max(right, x);
      }
    }
  }
  EXPECT_GT(left, 15 + 20);
  EXPECT_LT(left, 15 + 40);
  EXPECT_GT(right, left + 15) << "two figures";
  EXPECT_LT(right, 15 + 80);
}

TEST_F(SpeedChartTest, DrawsNoLineThroughOnePoint) {
  Append(1, 10);
  DrawPlain();
  EXPECT_FALSE(Has(CHART));
  EXPECT_EQ(MAXIMUM, FrameAt(20, 165));
  EXPECT_TRUE(Has(BIG_TEXT));
}

TEST_F(SpeedChartTest, KeepsItsFiguresInsideThePlot) {
  for (const float kmh : {0.0F, 5.0F, 20.0F, 199.0F, 250.0F, 1000.0F}) {
    Append(300, kmh);
    DrawPlain();
    const RECT text = Bounds(BIG_TEXT);
    EXPECT_LT(text.left, text.right) << kmh;
    EXPECT_GE(text.top, 25) << kmh;
    EXPECT_LE(text.bottom, 306) << kmh;
    EXPECT_GT(text.left, 15) << kmh;
    EXPECT_LE(text.right, 225) << kmh;
  }
}

TEST_F(SpeedChartTest, MarksMinutesByDashedLines) {
  Append(130, 10);  // up to 12:02:10
  DrawPlain();
  for (const int column : {59, 119}) {
    const int x = 15 + column;
    EXPECT_EQ(AXES, FrameAt(x, 30)) << column;
    EXPECT_EQ(AXES, FrameAt(x, 306)) << column;  // 281 % 24 = 17
    EXPECT_EQ(CHART_BACKGROUND, FrameAt(x, 45)) << column;
    EXPECT_EQ(CHART_BACKGROUND, FrameAt(x + 1, 30)) << column;
  }
}

/// At zoom 4 lines are 15 pixels apart, less than a label is wide.
TEST_F(SpeedChartTest, MarksAlsoMinutesWithoutRoomForALabel) {
  TapZoomOut();
  TapZoomOut();
  Append(250, 10);  // up to 12:04:10
  DrawPlain();
  // Points 59, 119, 179 and 239 share columns with 61, 121, 181 and 241: 61 / 4 = 15 and so on.
  for (const int column : {15, 30, 45, 60}) {
    EXPECT_EQ(AXES, FrameAt(15 + column, 30)) << column;
    EXPECT_EQ(CHART_BACKGROUND, FrameAt(16 + column, 30)) << column;
  }
}

/// At zoom 16 lines are less than 4 pixels apart, and would be a wall in front of which nobody sees
/// the chart.
TEST_F(SpeedChartTest, DimsMinutesThatStandCloseTogether) {
  for (int tap = 0; tap < 4; ++tap) {
    TapZoomOut();
  }
  Append(2000, 10);
  DrawPlain();
  // A quarter of the axes' colour. Points 59 and 1979 stand in columns 59 / 16 and 1979 / 16.
  for (const int column : {3, 123}) {
    EXPECT_EQ(Seen(RGB(0, 63, 63)), FrameAt(15 + column, 30)) << column;
    EXPECT_EQ(CHART_BACKGROUND, FrameAt(16 + column, 30)) << column;
  }
}

TEST_F(SpeedChartTest, GroupsPointsWhenZoomedOut) {
  TapZoomOut();
  TapZoomOut();
  for (int group = 0; group < 50; ++group) {
    Append(3, 0);
    Append(1, 20);
  }
  DrawPlain();
  // Each column spans the whole scale.
  for (int x = 16; x < 64; ++x) {
    EXPECT_EQ(CHART, FrameAt(x, 200)) << x;
  }
  EXPECT_EQ(CHART_BACKGROUND, FrameAt(66, 200));
}

TEST_F(SpeedChartTest, PutsEachPointOnItsOwnWhenZoomIsTwo) {
  TapZoomOut();
  for (int pair = 0; pair < 50; ++pair) {
    Append(1, 0);
    Append(1, 20);
  }
  DrawPlain();
  EXPECT_EQ(CHART, FrameAt(16, 200));
  EXPECT_EQ(CHART, FrameAt(63, 200));
  EXPECT_EQ(CHART_BACKGROUND, FrameAt(67, 200));
}

TEST_F(SpeedChartTest, KeepsItsZoomWithinLimits) {
  EXPECT_EQ(1, Zoom());
  TapZoomIn();
  EXPECT_EQ(1, Zoom());
  for (int tap = 0; tap < 8; ++tap) {
    TapZoomOut();
  }
  EXPECT_EQ(128, Zoom());
  TapZoomOut();
  EXPECT_EQ(128, Zoom());
  TapZoomIn();
  EXPECT_EQ(64, Zoom());
  TapZoomAuto();
  EXPECT_EQ(1, Zoom());
}

TEST_F(SpeedChartTest, PostsTheCodesOfAllButtons) {
  EXPECT_EQ(Codes{FEROLIN_BUTTON_ZOOM_IN}, TapZoomIn());
  EXPECT_EQ(Codes{FEROLIN_BUTTON_ZOOM_OUT}, TapZoomOut());
  EXPECT_EQ(Codes{FEROLIN_BUTTON_AUTOMATIC_ZOOM}, TapZoomAuto());
  EXPECT_EQ(Codes{FEROLIN_BUTTON_NEXT_VIEW}, Tap(210, 294));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_FLIP_HORIZONTALLY}, Tap(150, 294));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_ROTATE_SCREEN}, Tap(90, 294));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_PREVIOUS_VIEW}, Tap(30, 294));
  EXPECT_EQ(Codes{FEROLIN_BUTTON_CLOSE}, Tap(210, 26));
}

TEST_F(SpeedChartTest, ZoomsOnlyWhereAButtonIs) {
  Tap(30, 243);  // the free place of the second line
  Tap(120, 150);
  EXPECT_EQ(1, Zoom());
  ShowBars(FEROLIN_VIEW_SPEED_CHART, false);
  View(FEROLIN_VIEW_SPEED_CHART).OnMouseDown(window, {150, 243});
  View(FEROLIN_VIEW_SPEED_CHART).OnMouseUp(window, {150, 243});
  EXPECT_EQ(1, Zoom()) << "hidden";
}

TEST_F(SpeedChartTest, RedrawsAfterZooming) {
  Append(100, 10);
  DrawPlain();
  const auto before = Shown().rows;
  TapZoomOut();
  engine->Shutdown();  // waits for the redraw
  EXPECT_NE(before, Shown().rows);
}

TEST_F(SpeedChartTest, LeavesNothingBehindFromFrameToFrame) {
  Append(1000, 10);
  DrawPlain();
  const int objects = handheld::GdiObjectsAlive();
  for (int frame = 0; frame < 20; ++frame) {
    Draw(FEROLIN_VIEW_SPEED_CHART);
  }
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

TEST_F(SpeedChartTest, SurvivesAWindowWithoutRoom) {
  Append(100, 10);
  for (const auto& [width, height] : {std::pair(1, 1), std::pair(30, 50), std::pair(50, 20)}) {
    Open(width, height);
    DrawPlain();
  }
}

}  // namespace

}  // namespace ferolin
