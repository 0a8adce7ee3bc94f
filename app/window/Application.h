// The application: its window, the engine's views in it and the pages over them.
#pragma once

#include <windows.h>

#include <optional>

#include "drawing/Painter.h"
#include "engine/LoadedEngine.h"
#include "pages/PageStack.h"
#include "pages/Session.h"
#include "window/Commands.h"
#include "window/EngineViews.h"
#include "window/SleepWatch.h"

namespace app {

/// One exists at a time. All is done on the thread that makes it, which dispatches the window's
/// messages.
class Application {
 public:
  /// Null `surroundings`: the application is a program of its own, which ends with WM_QUIT. Both
  /// outlive it.
  explicit Application(const LoadedEngine& engine, Surroundings* surroundings = nullptr)
      : engine(engine), surroundings(surroundings), session(engine, surroundings) {}
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application();

  /// Opens the window and, in a program of its own, starts reading positions. False when the engine
  /// was not loaded, there is no window to be had, or the program runs already: that one comes to
  /// the front then.
  bool Start(HINSTANCE instance);

  /// Null before the start and after the end. It gets the engine's notifications.
  HWND GetWindow() const { return window; }
  /// The view chosen, also while none is shown. Between start and end.
  int GetView() const { return views->GetView(); }
  void SetView(int view) { views->SetView(view); }
  /// Texts of the last page drawn that did not fit into their places.
  int CountClippedTexts() const { return painter.CountClippedTexts(); }

  // For the surroundings, between start and end.

  /// False while a page lies over the views.
  bool ShowsViews() const { return views->AreShown(); }
  /// Shows an update that the surroundings were told of.
  void ShowUpdate();
  /// Shows how well the receiver is heard.
  void ShowReception();
  /// Gives the choices of the user that neither engine nor surroundings keep to the settings.
  void KeepChoices() const;

 private:
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  bool OpenWindow(HINSTANCE instance);
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnNotification(LPARAM code);
  void OnPress(POINT point, bool isDoubleClick);
  void OnDrag(POINT point);
  void OnRelease(POINT point);
  void OnKey(WPARAM key);
  void OnTimer(WPARAM timer);
  void OnSecond();
  void OnPaint();
  void OnClose();
  void OnDestroy();

  void Do(Command command);
  void OpenPage(PageId page);
  void ApplyOutcome(const Screen::Outcome& outcome);
  void LeaveWaiting();
  /// Shows the page that is open, or the views.
  void ShowTop();
  void DrawPage(Screen& page);
  /// Tells of a silent receiver over the view. The next frame of the engine covers it.
  void ShowNotice();
  void BeginFrame();
  void Quit();

  const LoadedEngine& engine;
  Surroundings* const surroundings;
  Session session;
  PageStack pages{session};
  Painter painter;
  SleepWatch sleepWatch;
  HWND window = nullptr;
  std::optional<EngineViews> views;
  UINT notification = 0;
  bool isPressed = false;
};

}  // namespace app
