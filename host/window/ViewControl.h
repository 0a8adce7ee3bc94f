// What the user does with the views.
#pragma once

#include <functional>
#include <string>

#include "commandline/Options.h"
#include "engine/EngineLibrary.h"

namespace host {

/// Applies the user's choice of view and picture, responds to buttons and keys, and passes touches
/// on to the engine. For the host's thread.
class ViewControl {
 public:
  /// Effects outside of the views. All must be set.
  struct Actions {
    std::function<void()> close;
    std::function<void()> toggleFullscreen;
    std::function<void(const std::string&)> say;
  };

  /// The engine outlives it. The view of `picture` is a number; the first view is shown when there
  /// is no view with that number.
  ViewControl(const EngineLibrary::Functions& engine, HWND window, const Options::Picture& picture,
              Actions actions);

  /// Responds to a touched button; codes that are not the host's do nothing.
  void OnButton(LPARAM code);

  /// Responds to a message of the render window.
  void OnMessage(const MSG& message);

  /// The picture as the user has it now, all set.
  Options::Picture GetPicture() const;

  /// Name of the current view in UTF-8; empty when there is no such view.
  std::string GetCurrentViewName() const;

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
  void AnswerOptions();
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
  /// Whether the last press touched a button; a double click is another press of it then.
  bool wasButton = false;
};

}  // namespace host
