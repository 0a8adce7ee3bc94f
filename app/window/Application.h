// The program: its window, the engine's views in it and the pages over them.
#pragma once

#include <windows.h>

#include <optional>

#include "drawing/Painter.h"
#include "engine/LoadedEngine.h"
#include "pages/PageStack.h"
#include "pages/Session.h"
#include "window/EngineViews.h"
#include "window/SleepWatch.h"

namespace app {

/// One exists at a time. All is done on the thread that makes it, which dispatches the window's
/// messages until WM_QUIT comes.
class Application {
 public:
  Application() = default;
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application();

  /// Opens the window and starts reading positions. False when the engine cannot be loaded, there
  /// is no window to be had, or the program runs already: that one comes to the front then.
  bool Start(HINSTANCE instance);

  /// Null before the start and after the end.
  HWND GetWindow() const { return window; }
  const LoadedEngine& GetEngine() const { return engine; }
  /// Texts of the last page drawn that did not fit into their places.
  int CountClippedTexts() const { return painter.CountClippedTexts(); }

 private:
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  bool OpenWindow(HINSTANCE instance);
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnNotification(LPARAM code);
  void OnUpdate();
  void OnButton(LPARAM code);
  void OnPress(POINT point, bool isDoubleClick);
  void OnDrag(POINT point);
  void OnRelease(POINT point);
  void OnKey(WPARAM key);
  void OnViewKey(WPARAM key);
  void OnTimer(WPARAM timer);
  void OnSecond();
  void OnPaint();
  void OnDestroy();

  void OpenPage(PageId page);
  void ApplyOutcome(const Screen::Outcome& outcome);
  void LeaveWaiting();
  /// Shows the page that is open, or the views.
  void ShowTop();
  void DrawPage(Screen& page);
  void DrawNotice();
  void BeginFrame();
  void ToggleMirror();
  void ToggleFlip();
  void ToggleTurn();
  void ToggleColors();
  void GoToPrevious() { views->GoBy(-1); }
  void GoToNext() { views->GoBy(1); }
  void OpenSettings() { OpenPage(PageId::SETTINGS); }
  void OpenReset() { OpenPage(PageId::RESET); }
  void OpenSms();
  void ToggleButtons() { views->ToggleButtons(); }
  void Quit();

  struct Button;
  struct Key;
  static const Button BUTTONS[];
  static const Key KEYS[];

  LoadedEngine engine;
  Session session{engine};
  PageStack pages{session};
  Painter painter;
  SleepWatch sleepWatch;
  HWND window = nullptr;
  std::optional<EngineViews> views;
  UINT notification = 0;
  bool isPressed = false;
};

/// Runs the program to its end. Returns the exit code.
int RunApplication(HINSTANCE instance);

}  // namespace app
