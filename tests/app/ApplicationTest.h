// The whole application with the real engine, driven by posted messages alone.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "RunningApplication.h"
#include "e2e/Device.h"
#include "engine/LoadedEngine.h"

namespace app {

/// "$body*hh\r\n" with its checksum.
std::string Sentence(std::string_view body);

/// An RMC sentence at 48 degrees 07.038 N, 11 degrees 31 E on 2024-03-23: time "hhmmss", status "A"
/// or "V", speed in knots as text.
std::string Rmc(std::string_view time, std::string_view status, std::string_view knots);

/// Rows of the pages as the tests count them, gaps included.
namespace rows {
enum Waiting { WAITING_RECEIVER = 2, WAITING_SETTINGS, WAITING_VIEWS, WAITING_QUIT };
enum Settings {
  LIMITS,
  READOUTS,
  RESET,
  RECEIVER,
  PICTURE,
  KEEP_SCREEN_ON,
  WRITE_TRACK,
  BEEP,
  SMS,
  THEME,
  ABOUT,
  QUIT
};
enum Receiver { SERVICE, SERIAL, PORT = 3, BAUD_RATE };
enum Picture { MIRROR, UPSIDE_DOWN, TURN, INVERT, LIGHT, NEXT_START, STANDARD, DAY, NIGHT };
enum Sms { RECIPIENTS, AUTOMATIC, INTERVAL, AFTER_MOVING, SEND_NOW };
}  // namespace rows

/// A device with the engine's pictures and a receiver at COM1, and the application, which Start
/// starts. All is done on the test's own thread.
class ApplicationTest : public testing::Test {
 protected:
  /// High enough for all rows of every page but the read-outs.
  static constexpr int WIDTH = 240;
  static constexpr int HEIGHT = 700;

  ApplicationTest();
  ~ApplicationTest() override;

  /// Starts the application in a window of that size; it waits for the receiver then.
  void Start(int width = WIDTH, int height = HEIGHT);
  /// Starts it with the port COM1 chosen, sends a position and waits for the views.
  void StartWithPosition(int width = WIDTH, int height = HEIGHT);
  /// Quits as a user of the window does and unloads the engine.
  void Quit();
  bool IsRunning() const { return application != nullptr && application->GetWindow() != nullptr; }

  const LoadedEngine& GetEngine() const { return *engine; }
  HWND GetWindow() const { return application->GetWindow(); }

  /// Dispatches all messages that have come.
  void Pump();
  /// Dispatches messages until it is so; false when it is not after so many milliseconds.
  bool WaitUntil(const std::function<bool()>& isSo, int longestMs = 10'000);

  // Input, all of it posted and dispatched.

  void Post(UINT message, WPARAM wParam, LPARAM lParam);
  void PostMouse(UINT message, int x, int y);
  void Press(int x, int y) { PostMouse(WM_LBUTTONDOWN, x, y); }
  void Drag(int x, int y) { PostMouse(WM_MOUSEMOVE, x, y); }
  void Release(int x, int y) { PostMouse(WM_LBUTTONUP, x, y); }
  /// Without a pause: no timer comes between press and release.
  void Tap(int x, int y);
  void DoubleTap(int x, int y);
  void Key(WPARAM key) { Post(WM_KEYDOWN, key, 0); }

  // Pages in a window of 96 dpi that is at most 320 pixels wide or high, where units are pixels.

  /// Taps the middle of a row that lies at `top`, its rows being so many from the page's first.
  void TapRow(int row, int gapsBefore = 0);
  /// Taps the button that lowers (-1) or raises (1) the number in that row.
  void TapStep(int row, int direction, int gapsBefore = 0);
  void TapBack() { Tap(24, 24); }
  /// From the views by the key, from the waiting page by its row.
  void OpenSettings();
  /// Opens a page that the settings link to.
  void OpenPage(int settingsRow);

  // In the views of a window that is WIDTH wide and higher than that.

  void TapGear() { Tap(150, 25); }
  void TapClose() { Tap(210, 25); }
  void TapMiddle() { Tap(WIDTH / 2, HEIGHT / 2); }
  /// Whether the engine has a view, and the window to draw it into.
  bool AreViewsShown() const;

  e2e::Device::Picture GetPicture() const { return device->GetPicture(GetWindow()); }
  std::uint32_t GetPixel(int x, int y) const;
  std::string ReadIni() const { return device->ReadFile("TachyMo.ini"); }
  void Send(const std::string& bytes) { receiver->Send(bytes); }
  /// Sends a position, again and again as receivers do, until the engine shows its time, "h:mm:ss".
  void SendPosition(std::string_view time, const std::string& shownTime,
                    std::string_view knots = "30");
  std::string GetValue(int sensor) const;
  std::string GetPortName() const;
  std::string GetSmsText() const;
  std::string GetRecipients() const;

  std::unique_ptr<e2e::Device> device;
  std::unique_ptr<e2e::Receiver> receiver;
  std::unique_ptr<LoadedEngine> engine;
  std::unique_ptr<RunningApplication> application;
};

}  // namespace app
