// The window: waiting, the engine's views, what is drawn when.

#include <ferolin.h>

#include <algorithm>

#include "ApplicationTest.h"
#include "drawing/Theme.h"

namespace app {

namespace {

class AppWindow : public ApplicationTest {
 protected:
  /// Waits for the view's first frame.
  void StartWithView(int width = WIDTH, int height = HEIGHT) {
    StartWithPosition(width, height);
    ASSERT_TRUE(WaitUntil([&] { return IsDrawn(); }));
  }

  bool IsDrawn() const {
    const auto picture = GetPicture();
    return !picture.pixels.empty() &&
           std::ranges::any_of(picture.pixels, [](std::uint32_t pixel) { return pixel != 0; });
  }

  /// Returns when no frame is being drawn.
  void FinishFrame() const {
    GetEngine().StopCallBack();
    GetEngine().StartCallBack(GetWindow());
  }

  /// Paints the window over, as another window would that lay before it.
  void PaintOver() const {
    const HDC dc = GetDC(GetWindow());
    const RECT all = {0, 0, WIDTH, HEIGHT};
    const HBRUSH brush = CreateSolidBrush(RGB(255, 0, 255));
    FillRect(dc, &all, brush);
    DeleteObject(brush);
    ReleaseDC(GetWindow(), dc);
  }

  /// Asks for it as the system does when the window comes out again.
  bool IsPaintedAnew() {
    const std::uint64_t before = device->GetPictureVersion(GetWindow());
    InvalidateRect(GetWindow(), nullptr, TRUE);
    Pump();
    return device->GetPictureVersion(GetWindow()) != before;
  }
};

TEST_F(AppWindow, WaitsForTheFirstPositionWithAPage) {
  // The service would report after a second.
  device->WriteFile("TachyMo.ini", "[Application]\r\nUseGpsApi=0\r\nPort=COM1\r\n");
  Start();
  EXPECT_EQ(FEROLIN_VIEW_NONE, GetEngine().GetCurRenderWidget());
  EXPECT_EQ(DARK_THEME.header, GetPixel(WIDTH - 2, 2));
  TapRow(rows::WAITING_VIEWS, 1);  // there is nothing to be seen yet
  EXPECT_EQ(FEROLIN_VIEW_NONE, GetEngine().GetCurRenderWidget());
  Key(VK_ESCAPE);
  EXPECT_TRUE(IsRunning());
  TapRow(rows::WAITING_QUIT, 1);
  EXPECT_FALSE(IsRunning());
}

TEST_F(AppWindow, ShowsViewsWithoutAPositionOnRequest) {
  device->SetTimeRate(20);  // the service reports once a second
  Start();
  EXPECT_TRUE(WaitUntil([&] {
    TapRow(rows::WAITING_VIEWS, 1);
    return AreViewsShown() && GetEngine().GetCurRenderWidget() == FEROLIN_VIEW_SPEEDOMETER;
  }));
}

TEST_F(AppWindow, LeavesAPageOpenWhenTheFirstPositionComes) {
  device->WriteFile("TachyMo.ini", "[Application]\r\nUseGpsApi=0\r\nPort=COM1\r\n");
  Start();
  OpenSettings();
  SendPosition("120000", "12:00:00");
  Pump();
  EXPECT_EQ(DARK_THEME.header, GetPixel(WIDTH - 2, 2));
  TapBack();
  EXPECT_TRUE(WaitUntil([&] { return AreViewsShown(); }));
  EXPECT_EQ(FEROLIN_VIEW_SPEEDOMETER, GetEngine().GetCurRenderWidget());
}

TEST_F(AppWindow, RunsOnlyOnce) {
  StartWithPosition();
  EXPECT_EQ(nullptr, RunningApplication::Start(GetEngine()));
  OpenSettings();
  EXPECT_FALSE(AreViewsShown());
}

TEST_F(AppWindow, OpensPagesByTheButtonsOfTheViews) {
  StartWithView();
  TapGear();
  EXPECT_FALSE(AreViewsShown());
  TapBack();
  EXPECT_TRUE(AreViewsShown());
}

TEST_F(AppWindow, ResetsNothingByTheButtonAlone) {
  StartWithView();
  Tap(30, 25);
  EXPECT_FALSE(AreViewsShown());
  EXPECT_EQ("55.6 km/h", GetValue(FEROLIN_SENSOR_MAX_SPEED));
}

TEST_F(AppWindow, QuitsByTheButton) {
  StartWithView();
  TapClose();
  EXPECT_FALSE(IsRunning());
}

TEST_F(AppWindow, TurnsOverItsViewsByButtonsKeysAndSwipes) {
  StartWithView();
  const auto view = [&] { return GetEngine().GetCurRenderWidget(); };
  Tap(210, HEIGHT - 25);
  EXPECT_EQ(1, view());
  ASSERT_TRUE(WaitUntil([&] { return IsDrawn(); }));
  Tap(30, HEIGHT - 25);
  EXPECT_EQ(0, view());
  Key(VK_LEFT);
  EXPECT_EQ(4, view());
  Key(VK_RIGHT);
  EXPECT_EQ(0, view());
  Press(220, 350);
  Release(20, 350);
  EXPECT_EQ(1, view());
}

TEST_F(AppWindow, MirrorsAndTurnsByButtonsAndKeys) {
  StartWithView();
  Tap(150, HEIGHT - 25);
  EXPECT_EQ(1, GetEngine().GetInvertHorz());
  Tap(90, HEIGHT - 25);
  EXPECT_EQ(1, GetEngine().GetInvertOrient());
  Key('H');
  Key('R');
  Key('V');
  Key('I');
  EXPECT_EQ(0, GetEngine().GetInvertHorz());
  EXPECT_EQ(0, GetEngine().GetInvertOrient());
  EXPECT_EQ(1, GetEngine().GetInvertVert());
  EXPECT_EQ(1, GetEngine().GetInvertColor());
}

TEST_F(AppWindow, ShowsHiddenButtonsAtATapAndLosesNone) {
  StartWithView();
  DoubleTap(WIDTH / 2, HEIGHT / 2);  // hides them
  TapGear();
  EXPECT_TRUE(AreViewsShown());
  TapGear();
  EXPECT_FALSE(AreViewsShown());
}

TEST_F(AppWindow, LeavesShownButtonsAtATap) {
  StartWithView();
  TapMiddle();
  TapGear();
  EXPECT_FALSE(AreViewsShown());
}

TEST_F(AppWindow, ShowsHiddenButtonsAtADoubleTapToo) {
  StartWithView();
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  TapGear();
  EXPECT_FALSE(AreViewsShown());
}

TEST_F(AppWindow, FindsItsButtonsInALandscapeWindow) {
  StartWithView(700, 480);
  Tap(350, 240);  // leaves them as they are
  // At the left, from the bottom: reset, an empty place, options, close, each with 53 pixels.
  Tap(25, 348);
  EXPECT_FALSE(AreViewsShown());
  TapBack();
  DoubleTap(350, 240);
  Tap(25, 348);
  EXPECT_TRUE(AreViewsShown());
  Tap(25, 348);
  EXPECT_FALSE(AreViewsShown());
}

TEST_F(AppWindow, FindsItsButtonsInATurnedPicture) {
  StartWithView();
  Key('R');
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  TapGear();
  EXPECT_TRUE(AreViewsShown());
  TapGear();
  EXPECT_FALSE(AreViewsShown());
}

TEST_F(AppWindow, ShowsTheViewAtOnceWhenTheLastPageCloses) {
  StartWithView();
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  const auto view = GetPicture();
  OpenSettings();
  EXPECT_NE(view, GetPicture());
  TapBack();  // the receiver says nothing
  EXPECT_TRUE(WaitUntil([&] { return GetPicture() == view; }));
}

TEST_F(AppWindow, DrawsAnotherViewWithoutWaitingForAPosition) {
  StartWithView();
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  const auto first = GetPicture();
  Key(VK_RIGHT);
  FinishFrame();
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  EXPECT_TRUE(IsDrawn());
  EXPECT_NE(first, GetPicture());
  Key(VK_LEFT);
  FinishFrame();
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  EXPECT_EQ(first, GetPicture());
}

TEST_F(AppWindow, DrawsATurnedViewWithoutWaitingForAPosition) {
  StartWithView();
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  const auto upright = GetPicture();
  OpenPage(rows::PICTURE);
  TapRow(rows::TURN);
  TapBack();
  TapBack();
  EXPECT_TRUE(WaitUntil([&] { return IsDrawn() && GetPicture() != upright; }));
  Key('R');
  EXPECT_TRUE(WaitUntil([&] { return GetPicture() == upright; }));
}

TEST_F(AppWindow, FillsAWindowOfAnotherShapeWithoutWaitingForAPosition) {
  StartWithView();
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  FinishFrame();
  // Above the strip that tells of a silent receiver.
  const auto isTopDrawn = [&] {
    const auto pixels = GetPicture().pixels;
    return std::any_of(pixels.begin(), pixels.begin() + static_cast<int>(pixels.size() / 4),
                       [](std::uint32_t pixel) { return pixel != 0; });
  };
  MoveWindow(GetWindow(), 0, 0, 700, 480, TRUE);
  EXPECT_TRUE(WaitUntil(isTopDrawn));
  MoveWindow(GetWindow(), 0, 0, WIDTH, HEIGHT, TRUE);
  EXPECT_TRUE(WaitUntil(isTopDrawn));
}

TEST_F(AppWindow, KeepsFramesOfTheEngineOffItsPages) {
  StartWithView();
  OpenSettings();
  const auto page = GetPicture();
  TapBack();
  constexpr int ROUNDS = 25;
  for (int round = 0; round < ROUNDS; ++round) {
    const std::string second = std::to_string(10 + round);
    Send(Rmc("1201" + second, "A", "40"));
    OpenSettings();
    SendPosition("1201" + second, "12:01:" + second, "40");
    FinishFrame();
    EXPECT_EQ(page.pixels, GetPicture().pixels) << round;
    TapBack();
  }
}

TEST_F(AppWindow, DrawsItsPageAnewWhenItWasCovered) {
  StartWithView();
  OpenSettings();
  const auto page = GetPicture();
  PaintOver();
  EXPECT_TRUE(IsPaintedAnew());
  EXPECT_EQ(page, GetPicture());
}

TEST_F(AppWindow, PresentsItsViewAnewWhenItWasCovered) {
  StartWithView();
  DoubleTap(WIDTH / 2, HEIGHT / 2);
  const auto view = GetPicture();
  PaintOver();
  EXPECT_TRUE(IsPaintedAnew());
  EXPECT_EQ(view, GetPicture());
}

TEST_F(AppWindow, TellsThatTheReceiverIsSilentUntilItSpeaksAgain) {
  StartWithView();
  // The strip over the middle is 44 pixels high.
  const auto border = [&] { return GetPixel(WIDTH / 2, HEIGHT / 2 - 22); };
  EXPECT_NE(DARK_THEME.warning, border());
  device->SetTimeRate(10);
  EXPECT_TRUE(WaitUntil([&] { return border() == DARK_THEME.warning; }));
  TapMiddle();
  EXPECT_EQ(DARK_THEME.warning, border());
  device->SetTimeRate(1);
  SendPosition("120001", "12:00:01");
  EXPECT_TRUE(WaitUntil([&] { return border() != DARK_THEME.warning; }));
}

TEST_F(AppWindow, ReadsAPortThatComesLater) {
  receiver.reset();
  device->WriteFile("TachyMo.ini", "[Application]\r\nUseGpsApi=0\r\nPort=COM1\r\n");
  Start();
  receiver = device->Connect("COM1");
  device->SetTimeRate(20);  // it is looked for every ten seconds
  SendPosition("120000", "12:00:00");
  EXPECT_TRUE(WaitUntil([&] { return AreViewsShown(); }));
}

TEST_F(AppWindow, OpensThePortAnewWhenTheDeviceHasWokenUp) {
  receiver.reset();
  device->WriteFile("TachyMo.ini", "[Application]\r\nUseGpsApi=0\r\nPort=COM1\r\n");
  Start();
  receiver = device->Connect("COM1");
  device->SetTimeRate(0.5);  // without that message it would be looked for after 20 seconds
  Post(WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
  SendPosition("120000", "12:00:00");
}

TEST_F(AppWindow, KeepsNothingOfPagesThatWereClosed) {
  StartWithView(WIDTH, 320);
  OpenPage(rows::LIMITS);
  TapBack();
  TapBack();
  ASSERT_TRUE(WaitUntil([&] { return IsDrawn(); }));
  GetEngine().StopCallBack();
  const int handles = device->GetHandlesAlive();
  const int objects = device->GetDrawingObjectsAlive();
  for (int round = 0; round < PAGE_ROUNDS; ++round) {
    OpenSettings();
    for (const int page : {rows::LIMITS, rows::READOUTS, rows::RESET, rows::RECEIVER}) {
      TapRow(page);
      TapBack();
    }
    TapBack();
  }
  GetEngine().StopCallBack();
  EXPECT_EQ(handles, device->GetHandlesAlive());
  // On a slow machine the receiver counts as silent meanwhile, and the notice's font is kept.
  constexpr int KEPT_FONTS = 4;
  EXPECT_LE(device->GetDrawingObjectsAlive(), objects + KEPT_FONTS);
}

TEST_F(AppWindow, FreesAllWhenItEnds) {
  const int handles = device->GetHandlesAlive();
  const int objects = device->GetDrawingObjectsAlive();
  StartWithView();
  OpenPage(rows::READOUTS);
  Quit();
  EXPECT_EQ(handles, device->GetHandlesAlive());
  EXPECT_EQ(objects, device->GetDrawingObjectsAlive());
}

}  // namespace

}  // namespace app
