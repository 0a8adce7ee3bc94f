// What the user does with the views.
#pragma once

#include <functional>
#include <string>

#include "commandline/Options.h"
#include "engine/EngineLibrary.h"

namespace host {

/// Applies the user's choice of view and picture, answers the engine's buttons, and hands mouse and
/// keys of the render window on. For the host's thread.
class ViewControl {
 public:
  /// What is done outside of the views. All must be set.
  struct Actions {
    std::function<void()> close;
    std::function<void()> toggleFullscreen;
    std::function<void(const std::string&)> say;
  };

  /// The engine outlives it. The view of `choices` is a number; without one, or when there are not
  /// so many views, it is the first one.
  ViewControl(const EngineLibrary::Functions& engineToUse, HWND windowToControl,
              const Options::Picture& choices, Actions actionsToTake);

  /// A button of a view was touched; codes as told at GetWndMessageID. Others do nothing.
  void OnButton(LPARAM code);

  /// A message of the render window.
  void OnMessage(const MSG& message);

  /// As the user has it now, all set.
  Options::Picture GetChoices() const;

  /// UTF-8; empty when there is no such view.
  std::string GetViewName() const;

 private:
  void OnKey(WPARAM key);
  void GoBy(int step);
  void GoToPrevious() { GoBy(-1); }
  void GoToNext() { GoBy(1); }
  void ResetAll();
  void SendSms();
  void ToggleColors();
  void ToggleMirror();
  void ToggleFlip();
  void ToggleRotation();
  void ToggleBars();
  void ShowKeys();
  void Close() { actions.close(); }
  void ToggleFullscreen() { actions.toggleFullscreen(); }

  void PresentAgain();
  void OnDoubleClick(int x, int y);

  struct Button;
  struct Key;
  static const Button BUTTONS[];
  static const Key KEYS[];

  const EngineLibrary::Functions& engine;
  HWND window;
  Actions actions;
  /// A button was touched by the last press: what follows soon is another press of it.
  bool wasButton = false;
};

/// Index of the view with that name or number (from 0). Throws UsageError, which lists the names.
int FindView(const EngineLibrary::Functions& engine, const std::string& nameOrNumber);

}  // namespace host
