#include <ferolin.h>

#include "base/Format.h"
#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "render/InvertFlags.h"
#include "widgets/ViewTest.h"
#include "widgets/path/PathTrack.h"

namespace ferolin {

namespace {

using Codes = std::vector<LPARAM>;

constexpr COLORREF START_COLOR = RGB(0, 0, 255);
constexpr COLORREF END_COLOR = RGB(255, 0, 0);
constexpr COLORREF PATH_COLOR = RGB(0, 255, 255);
constexpr COLORREF BORDER_COLOR = RGB(99, 99, 99);  // 0x60 on a scale of 31 steps is 12: 99
/// A point that can be compared and printed.
struct Pixel {
  LONG x, y;
  bool operator==(const Pixel&) const = default;
  friend void PrintTo(const Pixel& pixel, std::ostream* out) {
    *out << '(' << pixel.x << ", " << pixel.y << ')';
  }
};
constexpr Pixel NOWHERE = {-1, -1};

/// On 240 x 320 the path has columns 1 to 238 and rows 1 to 208, with (120, 105) in the middle. A
/// track as wide as it is high has 192 pixels: 208, less a margin of 8 above and below.
class PathTest : public ViewTest {
 protected:
  PathTest() { folder.Write("Tachymo.ini", "[PathWidget]\nStartPointColor=16711680\n"); }

  void Add(float latitude, float longitude) {
    engine->GetFix().GetTrack().Append(PathPointAt(latitude, longitude, 36, second));
    second += 10;
  }

  /// With a track from the lower left to the upper right.
  void OpenDiagonal(int width = 240, int height = 320, int dpi = 96) {
    Open(width, height, dpi);
    Add(5544, 3736);
    Add(5546, 3738);
    AttachView();
    engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_PATH);
  }

  void AttachView() {
    const LockGuard guard(engine->GetDataLock());
    View(FEROLIN_VIEW_PATH).Attach();
  }

  /// Middle of all pixels in that colour; NOWHERE without any.
  static Pixel MiddleOf(COLORREF color) {
    const RECT frame = theCanvas.GetFrameRect();
    RECT bounds = {frame.right, frame.bottom, 0, 0};
    for (LONG y = 0; y < frame.bottom; ++y) {
      for (LONG x = 0; x < frame.right; ++x) {
        if (GetPixel(theCanvas.GetDrawingDC(), x, y) == color) {
          bounds = {std::min(bounds.left, x), std::min(bounds.top, y),
                    std::max(bounds.right, x + 1), std::max(bounds.bottom, y + 1)};
        }
      }
    }
    return bounds.right == 0
               ? NOWHERE
               : Pixel{(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
  }

  /// The ring covers a column and a row more on its left and upper sides.
  Pixel StartMark() {
    ViewTest::Draw(FEROLIN_VIEW_PATH);
    const Pixel middle = MiddleOf(START_COLOR);
    return middle == NOWHERE ? NOWHERE : Pixel{middle.x + 1, middle.y + 1};
  }
  Pixel EndMark() {
    ViewTest::Draw(FEROLIN_VIEW_PATH);
    return MiddleOf(END_COLOR);
  }
  bool HasPath() {
    ViewTest::Draw(FEROLIN_VIEW_PATH);
    return MiddleOf(PATH_COLOR) != NOWHERE;
  }

  /// Waits for the redraw that a touch has asked for.
  void Settle() {
    engine->StopCallBack();
    engine->StartCallBack(window);
  }

  Codes Tap(int x, int y) {
    ShowBars(FEROLIN_VIEW_PATH, true);
    ::OnMouseDown(window, x, y);
    ::OnMouseUp(window, x, y);
    Settle();
    return TakePosted();
  }

  // In portrait, from the right: centre, automatic zoom, zoom in, zoom out; above them the others.
  void TapCenter() { Tap(30, 243); }
  void TapAutomatic() { Tap(90, 243); }
  void TapZoomIn() { Tap(150, 243); }
  void TapZoomOut() { Tap(210, 243); }

  void Drag(std::initializer_list<POINT> places) {
    ::OnMouseDown(window, places.begin()->x, places.begin()->y);
    for (const POINT& place : places) {
      ::OnMouseMove(window, place.x, place.y);
    }
    const POINT last = *(places.end() - 1);
    ::OnMouseUp(window, last.x, last.y);
    Settle();
  }

  int second = 0;
};

TEST_F(PathTest, IsNamedAfterTheDistance) {
  Load();
  EXPECT_STREQ("Distance", View(FEROLIN_VIEW_PATH).GetName());
}

TEST_F(PathTest, ReachesFromEdgeToEdge) {
  OpenDiagonal();
  EXPECT_EQ((Pixel{24, 201}), StartMark());
  EXPECT_EQ((Pixel{216, 9}), EndMark());
  EXPECT_EQ(PATH_COLOR, GetPixel(theCanvas.GetDrawingDC(), 120, 105));
}

TEST_F(PathTest, TellsStartAndEndApartByShape) {
  OpenDiagonal();
  const Pixel end = EndMark();
  const Pixel start = StartMark();
  EXPECT_EQ(END_COLOR, GetPixel(theCanvas.GetDrawingDC(), end.x, end.y)) << "a disc";
  EXPECT_NE(START_COLOR, GetPixel(theCanvas.GetDrawingDC(), start.x, start.y)) << "a ring";
}

TEST_F(PathTest, ShowsBothMarksWhereTheyMeet) {
  OpenDiagonal();
  Add(5544, 3736);
  EXPECT_EQ((Pixel{24, 201}), EndMark());
  EXPECT_EQ((Pixel{24, 201}), StartMark());
}

TEST_F(PathTest, HasABorder) {
  OpenDiagonal();
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  for (const auto& [x, y] : {std::pair(0, 0), std::pair(239, 0), std::pair(0, 209),
                             std::pair(239, 209), std::pair(120, 209)}) {
    EXPECT_EQ(BORDER_COLOR, GetPixel(theCanvas.GetDrawingDC(), x, y)) << x << ' ' << y;
  }
}

TEST_F(PathTest, IsNotDrawnWithoutPoints) {
  Open(240, 320);
  AttachView();
  EXPECT_FALSE(HasPath());
  EXPECT_EQ(NOWHERE, EndMark());
}

TEST_F(PathTest, IsNotDrawnForOnePoint) {
  Open(240, 320);
  Add(5540, 3730);
  EXPECT_FALSE(HasPath());
  EXPECT_EQ(NOWHERE, EndMark());
}

TEST_F(PathTest, IsNotDrawnForPointsOnOneLatitude) {
  Open(240, 320);
  for (int point = 0; point < 20; ++point) {
    Add(5540, 3730 + static_cast<float>(point));
  }
  EXPECT_FALSE(HasPath());
  Add(5541, 3730);
  EXPECT_TRUE(HasPath());
}

TEST_F(PathTest, IsNotDrawnForPointsOnOneLongitude) {
  Open(240, 320);
  for (int point = 0; point < 20; ++point) {
    Add(5540 + static_cast<float>(point), 3730);
  }
  EXPECT_FALSE(HasPath());
}

TEST_F(PathTest, IsNotDrawnWhereThereIsNoRoomForIt) {
  // The texts take 88 of the rows (two by 31, 20 for the speed, 6 between them) and the border 2:
  // an area of 9, then of 10.
  for (const auto& [height, isDrawn] : {std::pair(99, false), std::pair(100, true)}) {
    OpenDiagonal(90, height);
    EXPECT_EQ(isDrawn, EndMark() != NOWHERE) << height;
    Unload();
  }
}

TEST_F(PathTest, CrossesTheEquatorAndGreenwich) {
  Open(240, 320);
  Add(-1, -1);
  Add(1, 1);
  EXPECT_EQ((Pixel{24, 201}), StartMark());
  EXPECT_EQ((Pixel{216, 9}), EndMark());
  EXPECT_EQ(PATH_COLOR, GetPixel(theCanvas.GetDrawingDC(), 120, 105));
}

TEST_F(PathTest, RunsAroundTheWorldAtTheDateLine) {
  Open(240, 320);
  Add(0, 17959);
  Add(1, -17959);
  // 222 pixels wide between the margins.
  EXPECT_EQ(120 + 111, StartMark().x);
  EXPECT_EQ(120 - 111, EndMark().x);
}

TEST_F(PathTest, ZoomsByTwoAroundTheMiddle) {
  OpenDiagonal();
  TapZoomOut();
  EXPECT_EQ((Pixel{72, 153}), StartMark());
  EXPECT_EQ((Pixel{168, 57}), EndMark());
  TapZoomOut();
  EXPECT_EQ((Pixel{144, 81}), EndMark());
  TapZoomIn();
  EXPECT_EQ((Pixel{168, 57}), EndMark());
  TapZoomIn();
  EXPECT_EQ((Pixel{216, 9}), EndMark());
  TapZoomIn();
  EXPECT_EQ(NOWHERE, EndMark());
  EXPECT_EQ(PATH_COLOR, GetPixel(theCanvas.GetDrawingDC(), 120, 105));
}

TEST_F(PathTest, ZoomsAutomaticallyToAllOfThePath) {
  OpenDiagonal();
  TapZoomIn();
  TapZoomIn();
  Drag({{100, 100}, {130, 90}});
  TapAutomatic();
  EXPECT_EQ((Pixel{216, 9}), EndMark());
  EXPECT_EQ((Pixel{24, 201}), StartMark());
}

TEST_F(PathTest, CentresOnTheCurrentPosition) {
  OpenDiagonal();
  TapCenter();
  EXPECT_EQ((Pixel{120, 105}), EndMark());
  // A little further: the pan stays as it was.
  Add(5545.5F, 3738);
  EXPECT_EQ((Pixel{120, 105 + 48}), EndMark());
}

TEST_F(PathTest, CentresAtTheZoomThatIsSet) {
  OpenDiagonal();
  for (int zoom = 0; zoom < 5; ++zoom) {
    TapZoomIn();
  }
  TapCenter();
  EXPECT_EQ((Pixel{120, 105}), EndMark());
}

TEST_F(PathTest, CentresHoweverLargeThePathIs) {
  OpenDiagonal();
  for (int zoom = 0; zoom < 22; ++zoom) {
    TapZoomIn();
    TapCenter();
    EXPECT_EQ((Pixel{120, 105}), EndMark()) << zoom;
  }
}

TEST_F(PathTest, CentresOnceThereIsAPath) {
  Open(240, 320);
  Add(5544, 3736);
  AttachView();
  engine->GetRedraw().SetCurRenderWidget(FEROLIN_VIEW_PATH);
  TapCenter();
  Add(5546, 3738);
  EXPECT_EQ((Pixel{120, 105}), EndMark());
}

TEST_F(PathTest, PostsTheCodesOfItsButtonsInPortrait) {
  OpenDiagonal();
  EXPECT_EQ(Codes{2}, Tap(210, 294));
  EXPECT_EQ(Codes{7}, Tap(150, 294));
  EXPECT_EQ(Codes{8}, Tap(90, 294));
  EXPECT_EQ(Codes{1}, Tap(30, 294));
  EXPECT_EQ(Codes{10}, Tap(210, 243));
  EXPECT_EQ(Codes{9}, Tap(150, 243));
  EXPECT_EQ(Codes{12}, Tap(90, 243));
  EXPECT_EQ(Codes{11}, Tap(30, 243));
  EXPECT_EQ(Codes{6}, Tap(210, 26));
}

TEST_F(PathTest, PostsTheCodesOfItsButtonsInLandscape) {
  OpenDiagonal(320, 240);
  EXPECT_EQ(Codes{2}, Tap(294, 210));
  EXPECT_EQ(Codes{7}, Tap(294, 150));
  EXPECT_EQ(Codes{8}, Tap(294, 90));
  EXPECT_EQ(Codes{1}, Tap(294, 30));
  EXPECT_EQ(Codes{10}, Tap(243, 210));
  EXPECT_EQ(Codes{9}, Tap(243, 150));
  EXPECT_EQ(Codes{12}, Tap(243, 90));
  EXPECT_EQ(Codes{11}, Tap(243, 30));
}

TEST_F(PathTest, ZoomsNotByHiddenButtons) {
  OpenDiagonal();
  ShowBars(FEROLIN_VIEW_PATH, false);
  ::OnMouseDown(window, 210, 243);
  ::OnMouseUp(window, 210, 243);
  Settle();
  EXPECT_EQ((Pixel{216, 9}), EndMark());
}

TEST_F(PathTest, IsDrawnAnewAfterAButton) {
  OpenDiagonal();
  const std::uint64_t version = handheld::WindowPixelsVersion(window);
  TapZoomOut();
  EXPECT_NE(version, handheld::WindowPixelsVersion(window));
  EXPECT_EQ((Pixel{168, 57}), MiddleOf(END_COLOR));
}

TEST_F(PathTest, FollowsTheFinger) {
  OpenDiagonal();
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  Drag({{100, 100}, {90, 130}, {80, 120}});
  EXPECT_EQ((Pixel{196, 29}), MiddleOf(END_COLOR)) << "drawn anew without being asked";
  EXPECT_EQ((Pixel{196, 29}), EndMark());
  Drag({{50, 50}, {60, 55}});
  EXPECT_EQ((Pixel{206, 34}), EndMark());
}

TEST_F(PathTest, FollowsTheFingerHoweverFarItIsZoomed) {
  OpenDiagonal();
  TapZoomOut();
  TapZoomOut();
  Drag({{100, 100}, {110, 120}});
  EXPECT_EQ((Pixel{154, 101}), EndMark());
}

TEST_F(PathTest, FollowsTheFingerWithBarsShown) {
  OpenDiagonal();
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  ShowBars(FEROLIN_VIEW_PATH, true);
  Drag({{100, 100}, {90, 130}});
  EXPECT_EQ((Pixel{206, 39}), EndMark());
}

TEST_F(PathTest, StaysWhenTheFingerIsUp) {
  OpenDiagonal();
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  ::OnMouseMove(window, 100, 100);
  ::OnMouseDown(window, 100, 100);
  ::OnMouseUp(window, 100, 100);
  ::OnMouseMove(window, 120, 100);
  Settle();
  EXPECT_EQ((Pixel{216, 9}), EndMark());
}

TEST_F(PathTest, StaysWhenTheFingerIsOutsideOfItsArea) {
  OpenDiagonal();
  ShowBars(FEROLIN_VIEW_PATH, false);
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  Drag({{100, 250}, {110, 209}, {0, 100}, {239, 100}, {100, 0}});
  EXPECT_EQ((Pixel{216, 9}), EndMark());
}

TEST_F(PathTest, CatchesUpWithAFingerThatComesBack) {
  OpenDiagonal();
  ShowBars(FEROLIN_VIEW_PATH, false);
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  Drag({{100, 180}, {100, 250}, {90, 190}});
  EXPECT_EQ((Pixel{206, 19}), EndMark());
}

TEST_F(PathTest, FollowsAFingerThatComesInFromItsTexts) {
  OpenDiagonal(320, 240);
  ShowBars(FEROLIN_VIEW_PATH, false);
  const Pixel end = EndMark();
  // All the way from where the finger went down, beside the area.
  Drag({{310, 100}, {300, 90}, {190, 110}});
  EXPECT_EQ((Pixel{end.x - 120, end.y + 10}), EndMark());
}

TEST_F(PathTest, TakesADragForNoSwipe) {
  OpenDiagonal();
  ShowBars(FEROLIN_VIEW_PATH, false);
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  TakePosted();
  Drag({{20, 100}, {120, 100}, {220, 100}});
  EXPECT_EQ(Codes{}, TakePosted());
}

TEST_F(PathTest, TakesSwipesOverItsTexts) {
  OpenDiagonal();
  ShowBars(FEROLIN_VIEW_PATH, false);
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  TakePosted();
  Drag({{20, 280}, {120, 280}, {220, 280}});
  EXPECT_EQ(Codes{1}, TakePosted());
}

TEST_F(PathTest, FollowsTheFingerOnAFineScreen) {
  OpenDiagonal(480, 640, 192);
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  // In steps of half a pixel of the frame.
  Drag({{200, 200}, {201, 200}, {202, 200}, {203, 200}, {204, 220}});
  EXPECT_EQ((Pixel{218, 19}), EndMark());
}

TEST_F(PathTest, FollowsTheFingerWhenTurnedAndMirrored) {
  theInvertFlags.orient = 1;
  theInvertFlags.horz = 1;
  OpenDiagonal(320, 240);
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  // Turned clockwise, right is down and down is left; mirrored, left is down.
  Drag({{100, 100}, {110, 105}});
  EXPECT_EQ((Pixel{216 + 5, 9 + 10}), EndMark());
}

TEST_F(PathTest, TellsTheSameWhicheverViewWasShown) {
  Open(240, 320);
  for (int update = 0; update < 20; ++update) {
    Drive(Format("1200%02i", update), 60);
    ViewTest::Draw(FEROLIN_VIEW_PATH);
  }
  ShowBars(FEROLIN_VIEW_PATH, false);
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  const auto watched = Shown().rows;
  Unload();
  Open(240, 320);
  for (int update = 0; update < 20; ++update) {
    Drive(Format("1200%02i", update), 60);
    ViewTest::Draw(FEROLIN_VIEW_SPEEDOMETER);
  }
  ShowBars(FEROLIN_VIEW_PATH, false);
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  EXPECT_TRUE(watched == Shown().rows);
}

TEST_F(PathTest, KeepsNoObjectsFromFrameToFrame) {
  OpenDiagonal();
  ViewTest::Draw(FEROLIN_VIEW_PATH);
  const int objects = handheld::GdiObjectsAlive();
  for (int frame = 0; frame < 50; ++frame) {
    Add(5546 + static_cast<float>(frame), 3738);
    ViewTest::Draw(FEROLIN_VIEW_PATH);
  }
  EXPECT_EQ(objects, handheld::GdiObjectsAlive());
}

}  // namespace

}  // namespace ferolin
