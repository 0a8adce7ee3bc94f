// The attached engine, its calls of the device seen or made to fail.

#include <ferolin.h>
#include <gtest/gtest.h>
#include <handheld.h>

#include <algorithm>
#include <string>
#include <vector>

#include "DeviceCalls.h"
#include "engine/Engine.h"
#include "platform/PseudoTerminal.h"
#include "render/Canvas.h"
#include "support/TempFolder.h"

namespace ferolin {

namespace {

using Steps = std::vector<std::string>;

constexpr const WCHAR* CLASS_NAME = TEXT("AttachedEngine");

std::string Rmc(const std::string& time, const std::string& knots) {
  return "$GPRMC," + time + ",A,4807.038,N,01131.000,E," + knots + ",084.4,230324,,*00";
}

class AttachedEngine : public testing::Test {
 protected:
  AttachedEngine() {
    calls::Reset();
    handheld::SetModuleDirectory(folder.Path());
    handheld::SetTimeZone("UTC0");
    handheld::SetTimeRate(50);
    handheld::MapSerialPort("COM1:", line.DevicePath());
    // Any loaded library will do: it only has to lie in the folder.
    module = LoadLibraryW(handheld::DevicePath(ANY_LIBRARY).c_str());
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = &DefWindowProcW;
    windowClass.lpszClassName = CLASS_NAME;
    RegisterClassW(&windowClass);
    window = CreateWindowExW(0, CLASS_NAME, TEXT("Host"), WS_POPUP | WS_VISIBLE, 0, 0, 240, 320,
                             nullptr, nullptr, nullptr, nullptr);
  }

  ~AttachedEngine() override {
    Detach();
    DestroyWindow(window);
    FreeLibrary(module);
    handheld::MapSerialPort("COM1:", "");
    handheld::SetTimeRate(1);
    handheld::SetModuleDirectory("");
    calls::Reset();
  }

  void Attach() {
    DllMain(module, DLL_PROCESS_ATTACH, nullptr);
    ASSERT_NE(nullptr, theEngine);
    SetUseGPSAPI(0);
    SetComPortName(TEXT("COM1"));
  }

  void Detach() {
    if (theEngine != nullptr) {
      DllMain(module, DLL_PROCESS_DETACH, nullptr);
    }
  }

  static std::string SpeedText() {
    char text[256] = {};
    GetSensorValue(FEROLIN_SENSOR_SPEED, text, sizeof text);
    return text;
  }

  /// Waits until the engine shows this speed; false when it does not for long.
  static bool WaitForSpeed(const std::string& text) {
    constexpr int PATIENCE_MS = 500'000;  // of the device's time: ten seconds
    for (int waitedMs = 0; waitedMs < PATIENCE_MS && SpeedText() != text; waitedMs += 50) {
      Sleep(50);
    }
    return SpeedText() == text;
  }

  const testing_support::TempFolder folder;
  const PseudoTerminal line;
  HMODULE module = nullptr;
  HWND window = nullptr;
};

TEST_F(AttachedEngine, UpdatesSensorsViewsMessagesSoundsHostPowerAndFrameInThisOrder) {
  calls::InstallSmsLibrary();
  Attach();
  StartCallBack(window);
  SetRenderWindow(window);
  SetCurRenderWidget(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  SetSpeedEvent(0, 60, 10, 1);
  SetSMSParams(TEXT("111"), TEXT("here"), 2, 1, 0);
  theEngine->OnUpdate(Rmc("120000", "10").c_str());
  SetAlwaysTurnOn(1);
  calls::ForgetSteps();
  // A report goes out after a pause; 74 km/h are above the limit and a new maximum.
  theEngine->OnUpdate(Rmc("120500", "40").c_str());

  const Steps steps = calls::Steps();
  const auto isSensor = [](const std::string& step) { return step.starts_with("sensor"); };
  const auto firstOther = std::ranges::find_if_not(steps, isSensor);
  // Records of runs write their text for a new record only; all others write it at this update.
  const Steps sensors = {"sensor 0",  "sensor 1",  "sensor 2",  "sensor 6",
                         "sensor 7",  "sensor 8",  "sensor 9",  "sensor 10",
                         "sensor 17", "sensor 18", "sensor 19", "sensor 20",
                         "sensor 21", "sensor 22", "sensor 23", "sensor 24"};
  EXPECT_EQ(sensors, Steps(steps.begin(), firstOther));
  const Steps others = {"view 0", "view 1",  "view 2",     "view 3",    "view 4", "SMS",
                        "sound",  "message", "idle timer", "backlight", "redraw"};
  EXPECT_EQ(others, Steps(firstOther, steps.end()));
}

TEST_F(AttachedEngine, DrawsNothingIntoAWindowThatWasTakenAway) {
  Attach();
  theEngine->OnUpdate(Rmc("120000", "10").c_str());
  SetRenderWindow(window);
  SetCurRenderWidget(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  {
    // The frame that was asked for cannot begin before the window is taken away.
    const LockGuard guard(theEngine->GetDataLock());
    theEngine->RequestRedraw();
    constexpr DWORD LONG_ENOUGH_MS = 1000;  // of the device's time: 20 ms
    Sleep(LONG_ENOUGH_MS);
    SetRenderWindow(nullptr);
  }
  theEngine->GetRedraw().Wait();
  EXPECT_EQ(0U, handheld::WindowPixelsVersion(window));
}

TEST_F(AttachedEngine, ChangesNothingElseForARejectedSentence) {
  Attach();
  StartCallBack(window);
  SetAlwaysTurnOn(1);
  calls::ForgetSteps();
  theEngine->OnUpdate("$GPZDA,120000,23,03,2024,00,00*00");
  EXPECT_EQ(Steps{}, calls::Steps());
}

TEST_F(AttachedEngine, EndsReaderAndCanvasBeforeItWritesTrackAndSettings) {
  Attach();
  StartCallBack(window);
  SetRenderWindow(window);
  SetCurRenderWidget(FEROLIN_VIEW_FULL_SCREEN_SPEED);
  SetWriteKML(1);
  theEngine->OnUpdate(Rmc("120000", "10").c_str());
  theEngine->GetRedraw().Wait();
  ASSERT_NE(nullptr, theCanvas.GetDrawingDC());
  calls::ForgetSteps();
  Detach();
  EXPECT_EQ((Steps{"reader ended", "canvas freed", "track", "settings"}), calls::Steps());
  EXPECT_EQ(nullptr, theEngine);
  EXPECT_EQ(nullptr, theCanvas.GetDrawingDC());
  EXPECT_EQ(nullptr, theCanvas.GetPresentDC());
}

TEST_F(AttachedEngine, GoesOnReadingAfterFailedReads) {
  Attach();
  calls::failingPortReads = 3;
  StartCallBack(window);
  line.Send(Rmc("120000", "10") + "\r\n");
  EXPECT_TRUE(WaitForSpeed("18.5 km/h"));
  EXPECT_EQ(0, calls::failingPortReads);
}

TEST_F(AttachedEngine, ReadsAPortThatRefusesTheSpeed) {
  Attach();
  calls::isSetCommStateFailing = true;
  SetComPortSpeed(9600);
  EXPECT_EQ(1, StartCallBack(window));
  line.Send(Rmc("120000", "10") + "\r\n");
  EXPECT_TRUE(WaitForSpeed("18.5 km/h"));
}

TEST_F(AttachedEngine, TakesAPathWithoutABackslashWholeAsItsFolder) {
  calls::modulePath = u"Ferolin.dll";
  Attach();
  EXPECT_EQ(u"Ferolin.dll", theEngine->GetModuleDir());
  char logFolder[256] = {};
  GetLogFolder(logFolder, sizeof logFolder);
  EXPECT_STREQ("Ferolin.dll\\Tracks", logFolder);
}

TEST_F(AttachedEngine, CutsItsPathAtTheLastBackslash) {
  calls::modulePath = u"\\Storage Card\\Ferolin\\Ferolin.dll";
  Attach();
  EXPECT_EQ(u"\\Storage Card\\Ferolin", theEngine->GetModuleDir());
}

}  // namespace

}  // namespace ferolin
