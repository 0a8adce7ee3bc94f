// Every row of every page, by its effect on the engine or on the settings file.

#include <ferolin.h>

#include <algorithm>

#include "ApplicationTest.h"
#include "drawing/Theme.h"

namespace app {

namespace {

/// Gaps before the rows of a page's second group.
constexpr int ONE_GAP = 1;

class Pages : public ApplicationTest {};

struct SettingSwitch {
  const char* name;
  int row;
  int (*get)(const LoadedEngine& engine);
};

class SettingSwitches : public ApplicationTest,
                        public testing::WithParamInterface<SettingSwitch> {};

TEST_P(SettingSwitches, ChangeTheirSetting) {
  Start();
  OpenSettings();
  EXPECT_EQ(0, GetParam().get(GetEngine()));
  TapRow(GetParam().row);
  EXPECT_EQ(1, GetParam().get(GetEngine()));
  TapRow(GetParam().row);
  EXPECT_EQ(0, GetParam().get(GetEngine()));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SettingSwitches,
    testing::Values(
        SettingSwitch{"KeepScreenOn", rows::KEEP_SCREEN_ON,
                      [](const LoadedEngine& engine) { return engine.IsAlwaysTurnOn(); }},
        SettingSwitch{"WriteTrack", rows::WRITE_TRACK,
                      [](const LoadedEngine& engine) { return engine.IsWriteKML(); }},
        SettingSwitch{"Beep", rows::BEEP,
                      [](const LoadedEngine& engine) { return engine.GetBeepOnZero(); }}),
    [](const auto& tested) { return tested.param.name; });

class PictureSwitches : public ApplicationTest,
                        public testing::WithParamInterface<SettingSwitch> {};

TEST_P(PictureSwitches, ChangeThePicture) {
  Start();
  OpenPage(rows::PICTURE);
  EXPECT_EQ(0, GetParam().get(GetEngine()));
  TapRow(GetParam().row);
  EXPECT_EQ(1, GetParam().get(GetEngine()));
  TapRow(GetParam().row);
  EXPECT_EQ(0, GetParam().get(GetEngine()));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PictureSwitches,
    testing::Values(
        SettingSwitch{"Mirror", rows::MIRROR,
                      [](const LoadedEngine& engine) { return engine.GetInvertHorz(); }},
        SettingSwitch{"UpsideDown", rows::UPSIDE_DOWN,
                      [](const LoadedEngine& engine) { return engine.GetInvertVert(); }},
        SettingSwitch{"Turn", rows::TURN,
                      [](const LoadedEngine& engine) { return engine.GetInvertOrient(); }},
        SettingSwitch{"Invert", rows::INVERT,
                      [](const LoadedEngine& engine) { return engine.GetInvertColor(); }}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(Pages, HaveALightAndADarkTheme) {
  Start();
  OpenSettings();
  EXPECT_EQ(DARK_THEME.header, GetPixel(WIDTH - 2, 2));
  TapRow(rows::THEME);
  EXPECT_EQ(LIGHT_THEME.header, GetPixel(WIDTH - 2, 2));
}

TEST_F(Pages, QuitByTheirLastRow) {
  Start();
  OpenSettings();
  TapRow(rows::QUIT);
  EXPECT_FALSE(IsRunning());
}

TEST_F(Pages, CloseByTheirButtonAndByTheKey) {
  StartWithPosition();
  OpenPage(rows::ABOUT);
  EXPECT_FALSE(AreViewsShown());
  TapBack();
  EXPECT_FALSE(AreViewsShown());
  TapBack();
  EXPECT_TRUE(AreViewsShown());
  OpenSettings();
  EXPECT_FALSE(AreViewsShown());
  Key(VK_ESCAPE);
  EXPECT_TRUE(AreViewsShown());
}

class Limits : public ApplicationTest, public testing::WithParamInterface<int> {};

/// Each limit has three rows and a gap behind them.
TEST_P(Limits, AreSwitchedAndStepped) {
  const int limit = GetParam();
  const int first = 4 * limit;
  Start();
  OpenPage(rows::LIMITS);
  GetEngine().SetSpeedEvent(limit, 60, 10, 0);
  TapRow(first, limit);
  EXPECT_EQ(1, GetEngine().GetUseEventSound(limit));
  TapStep(first + 1, 1, limit);
  EXPECT_EQ(65, GetEngine().GetEventSpeedLimit(limit));
  TapStep(first + 1, -1, limit);
  TapStep(first + 1, -1, limit);
  EXPECT_EQ(55, GetEngine().GetEventSpeedLimit(limit));
  TapStep(first + 2, 1, limit);
  EXPECT_EQ(15, GetEngine().GetEventSpeedInter(limit));
  TapStep(first + 2, -1, limit);
  TapStep(first + 2, -1, limit);
  EXPECT_EQ(5, GetEngine().GetEventSpeedInter(limit));
  TapRow(first, limit);
  EXPECT_EQ(0, GetEngine().GetUseEventSound(limit));
  EXPECT_EQ(55, GetEngine().GetEventSpeedLimit(limit));
}

INSTANTIATE_TEST_SUITE_P(Rows, Limits, testing::Values(0, 1, 2));

TEST_F(Pages, StepLimitsBetweenTheirEndsToRoundNumbers) {
  Start();
  OpenPage(rows::LIMITS);
  GetEngine().SetSpeedEvent(0, 298, 0, 1);
  TapStep(1, 1);
  EXPECT_EQ(300, GetEngine().GetEventSpeedLimit(0));
  TapStep(1, 1);
  EXPECT_EQ(300, GetEngine().GetEventSpeedLimit(0));
  GetEngine().SetSpeedEvent(0, 7, 0, 1);
  TapStep(1, -1);
  EXPECT_EQ(5, GetEngine().GetEventSpeedLimit(0));
  TapStep(1, -1);
  EXPECT_EQ(5, GetEngine().GetEventSpeedLimit(0));
  TapStep(2, 1);
  EXPECT_EQ(5, GetEngine().GetEventSpeedInter(0));
  TapStep(2, -1);
  EXPECT_EQ(5, GetEngine().GetEventSpeedInter(0));
}

TEST_F(Pages, RepeatAStepWhileItsButtonIsHeld) {
  Start();
  OpenPage(rows::LIMITS);
  GetEngine().SetSpeedEvent(0, 60, 10, 1);
  const int x = WIDTH - 33;
  const int y = 48 + 48 + 24;
  Press(x, y);
  EXPECT_EQ(65, GetEngine().GetEventSpeedLimit(0));
  EXPECT_TRUE(WaitUntil([&] { return GetEngine().GetEventSpeedLimit(0) >= 80; }));
  Release(x, y);
  const int released = GetEngine().GetEventSpeedLimit(0);
  for (int timers = 0; timers < 20; ++timers) {
    Post(WM_TIMER, 2, 0);
  }
  EXPECT_EQ(released, GetEngine().GetEventSpeedLimit(0));
}

TEST_F(Pages, ChooseTheReceiver) {
  Start();
  EXPECT_EQ(1, GetEngine().IsUseGPSAPI());
  OpenPage(rows::RECEIVER);
  TapRow(rows::SERIAL);
  EXPECT_EQ(0, GetEngine().IsUseGPSAPI());
  TapRow(rows::SERVICE);
  EXPECT_EQ(1, GetEngine().IsUseGPSAPI());
}

TEST_F(Pages, OfferNoPortWhileTheServiceIsTheReceiver) {
  Start();
  OpenPage(rows::RECEIVER);
  TapRow(rows::PORT, ONE_GAP);
  TapRow(0);  // the first port, if the page had opened
  EXPECT_EQ("", GetPortName());
}

TEST_F(Pages, ChooseAmongThePortsThatExist) {
  const auto second = device->Connect("COM3");
  Start();
  OpenPage(rows::RECEIVER);
  TapRow(rows::SERIAL);
  TapRow(rows::PORT, ONE_GAP);
  TapRow(1);
  EXPECT_EQ("COM3", GetPortName());
  TapRow(0);
  EXPECT_EQ("COM1", GetPortName());
  TapRow(2);
  EXPECT_EQ("COM1", GetPortName());
}

TEST_F(Pages, ChooseTheBaudRateAndOpenThePortWithIt) {
  Start();
  OpenPage(rows::RECEIVER);
  TapRow(rows::SERIAL);
  TapRow(rows::PORT, ONE_GAP);
  TapRow(0);
  TapBack();
  TapRow(rows::BAUD_RATE, ONE_GAP);
  constexpr int FIRST_RATES[] = {4800, 9600, 19200, 38400, 57600, 115200, 2400, 300};
  int row = 0;
  for (const int rate : FIRST_RATES) {
    TapRow(row++);
    EXPECT_EQ(rate, GetEngine().GetComPortSpeed());
    EXPECT_EQ(rate, receiver->GetBaudRate());
  }
  TapRow(row);
  EXPECT_EQ(-9999, GetEngine().GetComPortSpeed());
}

TEST_F(Pages, AreAllThatAUserNeedsToSeeTheSpeed) {
  Start();
  TapRow(rows::WAITING_RECEIVER, ONE_GAP);
  TapRow(rows::SERIAL);
  TapRow(rows::PORT, ONE_GAP);
  TapRow(0);
  TapBack();
  TapRow(rows::BAUD_RATE, ONE_GAP);
  TapRow(0);
  TapBack();
  TapBack();
  EXPECT_EQ(FEROLIN_VIEW_NONE, GetEngine().GetCurRenderWidget());
  SendPosition("120000", "12:00:00");
  EXPECT_TRUE(WaitUntil([&] { return AreViewsShown(); }));
  EXPECT_EQ(FEROLIN_VIEW_SPEEDOMETER, GetEngine().GetCurRenderWidget());
  EXPECT_EQ("55.6 km/h", GetValue(FEROLIN_SENSOR_SPEED));
}

TEST_F(Pages, ResetOneReadoutWithTheSecondTap) {
  StartWithPosition();
  EXPECT_EQ("55.6 km/h", GetValue(FEROLIN_SENSOR_MAX_SPEED));
  int row = 2;
  for (int sensor = 0; sensor < FEROLIN_SENSOR_MAX_SPEED; ++sensor) {
    row += GetEngine().IsSensorSaveable(sensor);
  }
  OpenPage(rows::RESET);
  TapRow(row, ONE_GAP);
  EXPECT_EQ("55.6 km/h", GetValue(FEROLIN_SENSOR_MAX_SPEED));
  TapRow(row, ONE_GAP);
  EXPECT_EQ("", GetValue(FEROLIN_SENSOR_MAX_SPEED));
  EXPECT_EQ("55.6 km/h", GetValue(FEROLIN_SENSOR_SPEED));
}

TEST_F(Pages, ResetNothingWhenAnotherRowIsTappedInBetween) {
  StartWithPosition();
  OpenPage(rows::RESET);
  TapRow(0);
  TapRow(2, ONE_GAP);
  TapRow(0);
  EXPECT_EQ("55.6 km/h", GetValue(FEROLIN_SENSOR_MAX_SPEED));
}

TEST_F(Pages, ResetAllReadoutsWithTheSecondTap) {
  StartWithPosition();
  OpenPage(rows::RESET);
  TapRow(0);
  EXPECT_EQ("55.6 km/h", GetValue(FEROLIN_SENSOR_MAX_SPEED));
  TapRow(0);
  EXPECT_EQ("", GetValue(FEROLIN_SENSOR_MAX_SPEED));
  EXPECT_EQ("", GetValue(FEROLIN_SENSOR_SPEED));
}

TEST_F(Pages, ShowReadoutsLive) {
  StartWithPosition();
  OpenPage(rows::READOUTS);
  const auto before = GetPicture();
  SendPosition("120001", "12:00:01", "40");
  EXPECT_TRUE(WaitUntil([&] { return GetPicture() != before; }));
}

TEST_F(Pages, ScrollWithTheFingerAndStopAtTheirEnds) {
  StartWithPosition(WIDTH, 320);
  OpenSettings();
  const auto top = GetPicture();
  Press(100, 200);
  Drag(100, 150);
  EXPECT_NE(top, GetPicture());
  Drag(100, 250);
  Drag(100, 200);
  Drag(100, 300);
  EXPECT_EQ(top.pixels, GetPicture().pixels);
  Drag(100, -3000);
  const auto bottom = GetPicture();
  Drag(100, -3100);
  EXPECT_EQ(bottom.pixels, GetPicture().pixels);
  Release(100, -3100);
  EXPECT_FALSE(AreViewsShown());
}

TEST_F(Pages, StayUnderTheFingerWhileItRests) {
  Start(WIDTH, 320);
  TapRow(rows::WAITING_SETTINGS, ONE_GAP);
  Press(100, 200);
  Drag(100, 180);
  const auto dragged = GetPicture();
  Post(WM_TIMER, 2, 0);
  EXPECT_EQ(dragged.pixels, GetPicture().pixels);
  Release(100, 180);
}

TEST_F(Pages, PressNothingWhileTheyAreScrolled) {
  Start(WIDTH, 320);
  TapRow(rows::WAITING_SETTINGS, ONE_GAP);
  const int y = 48 + rows::KEEP_SCREEN_ON * 48 + 12;
  Press(100, y);
  Drag(100, y - 20);
  Drag(100, y);
  Release(100, y);
  EXPECT_EQ(0, GetEngine().IsAlwaysTurnOn());
}

TEST_F(Pages, GoOnScrollingWhenTheyAreFlung) {
  Start(WIDTH, 320);
  TapRow(rows::WAITING_SETTINGS, ONE_GAP);
  // A finger that rests before it leaves flings nothing; on a busy machine it may seem to.
  constexpr int TRIES = 20;
  constexpr int PATIENCE_MS = 300;
  bool goesOn = false;
  for (int tried = 0; tried < TRIES && !goesOn; ++tried) {
    Press(100, 100);
    Drag(100, 300);
    Drag(100, 600);
    Press(100, 300);
    Drag(100, 260);
    Drag(100, 220);
    Release(100, 220);
    const auto released = GetPicture();
    goesOn = WaitUntil([&] { return GetPicture() != released; }, PATIENCE_MS);
  }
  EXPECT_TRUE(goesOn);
}

TEST_F(Pages, AreUsedByKeysAlone) {
  Start();
  for (int step = 0; step < 2; ++step) {
    Key(VK_DOWN);
  }
  Key(VK_RETURN);  // settings: the second row that can be pressed
  for (int step = 0; step <= rows::WRITE_TRACK; ++step) {
    Key(VK_DOWN);
  }
  Key(VK_RETURN);
  EXPECT_EQ(1, GetEngine().IsWriteKML());
  Key(VK_UP);
  Key(VK_RETURN);
  EXPECT_EQ(1, GetEngine().IsAlwaysTurnOn());
}

TEST_F(Pages, StepWithTheKeysLeftAndRight) {
  Start();
  OpenPage(rows::LIMITS);
  GetEngine().SetSpeedEvent(0, 60, 10, 1);
  Key(VK_DOWN);
  Key(VK_DOWN);
  Key(VK_RIGHT);
  EXPECT_EQ(65, GetEngine().GetEventSpeedLimit(0));
  Key(VK_LEFT);
  Key(VK_LEFT);
  EXPECT_EQ(55, GetEngine().GetEventSpeedLimit(0));
}

// Position by SMS

class SmsPages : public ApplicationTest {
 protected:
  SmsPages() { device->InstallSmsLibrary(); }

  /// Middle of a key in a window of the usual size: 14 keys on 4 x 4 cells below head and field.
  void TapKey(int column, int row) {
    constexpr int TOP = 48 + 52;
    Tap(WIDTH * (2 * column + 1) / 8, TOP + (HEIGHT - TOP) * (2 * row + 1) / 8);
  }
};

TEST_F(SmsPages, TakeNumbersFromTheKeypad) {
  Start();
  OpenPage(rows::SMS);
  TapRow(rows::RECIPIENTS);
  // "+7,12345689" with a wrong "0" that is erased.
  constexpr POINT KEYS[] = {{0, 3}, {0, 2}, {2, 3}, {0, 0}, {1, 0}, {2, 0}, {0, 1},
                            {1, 1}, {2, 1}, {1, 3}, {3, 0}, {1, 2}, {2, 2}};
  for (const POINT& key : KEYS) {
    TapKey(key.x, key.y);
  }
  EXPECT_EQ("", GetRecipients());
  TapKey(3, 2);
  EXPECT_EQ("+7,12345689", GetRecipients());
}

TEST_F(SmsPages, KeepTheNumbersWhenTheKeypadIsLeft) {
  Start();
  GetEngine().SetSMSParams(TEXT("123"), TEXT("here"), 10, 0, 0);
  OpenPage(rows::SMS);
  TapRow(rows::RECIPIENTS);
  TapKey(0, 0);
  TapBack();
  EXPECT_EQ("123", GetRecipients());
  TapRow(rows::RECIPIENTS);
  TapKey(0, 0);
  TapKey(3, 3);
  EXPECT_EQ("1231", GetRecipients());
}

TEST_F(SmsPages, ChooseWhenReportsAreSent) {
  Start();
  GetEngine().SetSMSParams(TEXT("123"), TEXT("here"), 10, 0, 0);
  OpenPage(rows::SMS);
  TapRow(rows::AUTOMATIC);
  EXPECT_EQ(1, GetEngine().IsSMSEnabled());
  TapRow(rows::AFTER_MOVING);
  EXPECT_EQ(1, GetEngine().IsSMSSendIfChanged());
  TapStep(rows::INTERVAL, 1);
  EXPECT_EQ(15, GetEngine().GetSMSInterval());
  TapStep(rows::INTERVAL, -1);
  TapStep(rows::INTERVAL, -1);
  EXPECT_EQ(9, GetEngine().GetSMSInterval());
  EXPECT_EQ("123", GetRecipients());
  EXPECT_EQ("here", GetSmsText());
}

TEST_F(SmsPages, SendAReportAtOnce) {
  Start();
  GetEngine().SetSMSParams(TEXT("123"), TEXT("here"), 10, 0, 0);
  OpenPage(rows::SMS);
  TapRow(rows::SEND_NOW);
  EXPECT_TRUE(WaitUntil([&] { return device->GetSmsSent().size() == 1; }));
  EXPECT_EQ("here", device->GetSmsSent().at(0).text);
}

TEST_F(SmsPages, SendNothingToNobody) {
  Start();
  OpenPage(rows::SMS);
  TapRow(rows::SEND_NOW);
  EXPECT_TRUE(device->GetSmsSent().empty());
}

TEST_F(SmsPages, NeverCutALongTemplate) {
  const std::string text(3000, 'x');
  device->WriteFile("TachyMo.ini", "[SMS]\r\nText=" + text + "\r\n");
  Start();
  ASSERT_EQ(text, GetSmsText());
  OpenPage(rows::SMS);
  TapRow(rows::AUTOMATIC);
  EXPECT_EQ(1, GetEngine().IsSMSEnabled());
  EXPECT_EQ(text, GetSmsText());
}

TEST_F(Pages, HaveNoSmsPageWithoutALibraryForMessages) {
  Start();
  OpenPage(rows::SMS);
  TapRow(rows::AUTOMATIC);
  EXPECT_EQ(0, GetEngine().IsSMSEnabled());
}

// Kept choices

TEST_F(Pages, KeepAllChoicesFromRunToRun) {
  Start();
  OpenPage(rows::RECEIVER);
  TapRow(rows::SERIAL);
  TapRow(rows::PORT, ONE_GAP);
  TapRow(0);
  TapBack();
  TapRow(rows::BAUD_RATE, ONE_GAP);
  TapRow(1);
  TapBack();
  TapBack();
  for (const int row : {rows::KEEP_SCREEN_ON, rows::WRITE_TRACK, rows::BEEP, rows::THEME}) {
    TapRow(row);
  }
  TapRow(rows::PICTURE);
  for (const int row : {rows::MIRROR, rows::UPSIDE_DOWN, rows::TURN, rows::INVERT}) {
    TapRow(row);
  }
  TapBack();
  TapRow(rows::LIMITS);
  const int limit = GetEngine().GetEventSpeedLimit(0);
  TapStep(1, 1);
  Quit();

  Start();
  EXPECT_EQ(0, GetEngine().IsUseGPSAPI());
  EXPECT_EQ("COM1", GetPortName());
  EXPECT_EQ(9600, GetEngine().GetComPortSpeed());
  EXPECT_EQ(1, GetEngine().IsAlwaysTurnOn());
  EXPECT_EQ(1, GetEngine().IsWriteKML());
  EXPECT_EQ(1, GetEngine().GetBeepOnZero());
  EXPECT_EQ(1, GetEngine().GetInvertHorz());
  EXPECT_EQ(1, GetEngine().GetInvertVert());
  EXPECT_EQ(1, GetEngine().GetInvertOrient());
  EXPECT_EQ(1, GetEngine().GetInvertColor());
  EXPECT_EQ(limit + 5, GetEngine().GetEventSpeedLimit(0));
  EXPECT_EQ(LIGHT_THEME.header, GetPixel(WIDTH - 2, 2));
}

TEST_F(Pages, KeepALimitWithTheNarrowestBand) {
  Start();
  OpenPage(rows::LIMITS);
  TapRow(0);
  TapStep(1, 1);
  for (int step = 0; step < 3; ++step) {
    TapStep(2, -1);
  }
  const int limit = GetEngine().GetEventSpeedLimit(0);
  const int band = GetEngine().GetEventSpeedInter(0);
  Quit();
  Start();
  EXPECT_EQ(limit, GetEngine().GetEventSpeedLimit(0));
  EXPECT_EQ(band, GetEngine().GetEventSpeedInter(0));
  EXPECT_EQ(1, GetEngine().GetUseEventSound(0));
}

TEST_F(Pages, KeepTheViewAndTheTrip) {
  StartWithPosition();
  Key(VK_RIGHT);
  Quit();
  Start();
  EXPECT_EQ("55.6 km/h", GetValue(FEROLIN_SENSOR_MAX_SPEED));
  SendPosition("120100", "12:01:00");
  EXPECT_TRUE(WaitUntil(
      [&] { return GetEngine().GetCurRenderWidget() == FEROLIN_VIEW_FULL_SCREEN_SPEED; }));
}

}  // namespace

}  // namespace app
