// The application's window on a display.
#pragma once

#include <memory>
#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "display/Display.h"
#include "engine/EngineLibrary.h"
#include "receiver/Surroundings.h"
#include "window/Application.h"
#include "window/HostWindow.h"

namespace host {

/// Views and pages, with the command line's source and picture. For the host's thread.
class ApplicationWindow : public app::Surroundings {
 public:
  /// Null, and the reason told, when no display can be opened and the user does not insist on one.
  /// Throws HostError when the user does. All arguments outlive the window.
  static std::unique_ptr<ApplicationWindow> Open(const EngineLibrary& engine,
                                                 const Options& options, HostWindow& hostWindow,
                                                 Messages& messages);

  /// Must get the engine's notifications.
  HWND GetHandle() const { return application.GetWindow(); }

  /// Shows an update, and what is wrong with the reception.
  void ShowUpdate(const Update& update);
  /// Shows what is wrong with the reception while no updates come.
  void ShowReception(const Update& update);
  void SetTitle(const std::string& title) { display->SetTitle(title); }

  int GetView() const { return application.GetView(); }
  /// False while a page lies over the views.
  bool ShowsViews() const { return application.ShowsViews(); }
  /// Gives the choices of the pages that the engine does not keep to the settings.
  void KeepChoices() const { application.KeepChoices(); }

  app::WideString DescribeSource() const override { return sourceName; }
  app::WideString DescribeTrouble() const override { return trouble; }
  void OnUpdate() override { hostWindow.NoteUpdate(); }
  void OnQuit() override { hostWindow.Post(HostWindow::Event::STOP); }
  void ToggleFullScreen() override { display->ToggleFullscreen(); }

 private:
  ApplicationWindow(const EngineLibrary& engine, const Options& options, HostWindow& hostWindow);

  void Take(const Update& update);
  /// Makes the device's screen as large as the frame; the application draws for it then.
  void FollowFrame(const Options& options, int width, int height) const;
  /// False when there is no display; `error` is the reason then.
  bool OpenDisplay(const Options& options, std::string& error);

  HostWindow& hostWindow;
  app::WideString sourceName;
  app::WideString trouble;
  app::Application application;
  std::unique_ptr<handheld::Display> display;
};

}  // namespace host
