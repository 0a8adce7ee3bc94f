// The views of the engine as the user sees them.
#pragma once

#include <memory>
#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "window/ApplicationWindow.h"
#include "window/HostWindow.h"
#include "window/RenderWindow.h"

namespace host {

/// The window that the engine draws into: on a display and for browsers that of the application,
/// else one that only picture files show. For the host's thread.
class ViewWindow {
 public:
  /// Null when neither a display nor browsers nor picture files are to show views. Throws HostError when the
  /// user insists on a display and it cannot be opened. All arguments outlive the window.
  static std::unique_ptr<ViewWindow> Open(const EngineLibrary& engine, const Options& options,
                                          HostWindow& hostWindow, Messages& messages);

  ViewWindow(const ViewWindow&) = delete;
  ViewWindow& operator=(const ViewWindow&) = delete;
  ~ViewWindow();

  /// Whether the application shows the views, on a display or to browsers.
  bool HasDisplay() const { return shown != nullptr; }
  /// The application's window; null when nobody but picture files shows views.
  ApplicationWindow* GetApplication() const { return shown.get(); }
  /// Of the window that must get the engine's notifications; null when it is the host's own.
  HWND GetNotifiedWindow() const { return HasDisplay() ? shown->GetHandle() : nullptr; }
  RenderWindow& GetRenderWindow() { return *frames; }
  /// False while the engine draws no frames, since a page of the application lies over the views.
  bool ShowsViews() const { return !HasDisplay() || shown->ShowsViews(); }

  // What a display shows.

  void ShowUpdate(const Update& update);
  void ShowReception(const Update& update);
  void ShowTitle(const Update& update);
  /// Brings the window to the front.
  void Raise();

  int GetView() const;
  /// The picture as the user has it now, all set.
  Options::Picture GetPicture() const;
  /// Gives the choices of the application's pages to the settings.
  void KeepChoices() const;

 private:
  ViewWindow(const EngineLibrary& engine, const Options& options,
             std::unique_ptr<ApplicationWindow> shown);

  const EngineLibrary& engine;
  const std::string sourceName;
  /// Null when only picture files are written.
  std::unique_ptr<ApplicationWindow> shown;
  std::unique_ptr<RenderWindow> frames;
  std::string titleShown;
};

}  // namespace host
