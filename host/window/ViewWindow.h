// The views of the engine as the user sees them.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "display/Display.h"
#include "engine/EngineLibrary.h"
#include "window/HostWindow.h"
#include "window/RenderWindow.h"
#include "window/ViewControl.h"

namespace host {

/// The window that the engine draws into, shown on a display if there is one. For the host's
/// thread.
class ViewWindow {
 public:
  /// Null when neither a display nor picture files are to show views. Throws HostError when the
  /// user insists on a display and it cannot be opened. All arguments outlive the window.
  static std::unique_ptr<ViewWindow> Open(const EngineLibrary& engine, const Options& options,
                                          HostWindow& hostWindow, Messages& messages);

  ViewWindow(const ViewWindow&) = delete;
  ViewWindow& operator=(const ViewWindow&) = delete;
  ~ViewWindow();

  bool HasDisplay() const { return display != nullptr; }
  RenderWindow& GetRenderWindow() { return *window; }

  /// Brings the display up to date if that is due. `update` is the last one.
  void Refresh(const Update& update);

  /// The picture as the user has it now, all set.
  Options::Picture GetPicture() const { return control.GetPicture(); }

 private:
  ViewWindow(const EngineLibrary& engine, const Options& options, HostWindow& hostWindow,
             Messages& messages, std::unique_ptr<RenderWindow> window,
             std::unique_ptr<handheld::Display> display);

  ViewControl::Actions MakeActions(HostWindow& hostWindow, Messages& messages);
  void ShowTitle(const Update& update);

  const EngineLibrary& engine;
  const std::string sourceName;
  std::unique_ptr<RenderWindow> window;
  /// Null when only picture files are written.
  std::unique_ptr<handheld::Display> display;
  ViewControl control;
  std::string titleShown;
  std::chrono::steady_clock::time_point nextRefresh;
};

}  // namespace host
