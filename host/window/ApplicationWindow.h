// The application's window, on a display or for browsers.
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
#include "window/RemoteInput.h"

namespace host {

/// Views and pages, with the command line's source and picture. For the host's thread.
class ApplicationWindow : public app::Surroundings {
 public:
  /// Null when neither a display nor browsers are to show it, and when no display can be opened,
  /// which is told, and nobody else is to show it. Throws HostError when the user insists on a
  /// display and it cannot be opened. All arguments outlive the window.
  static std::unique_ptr<ApplicationWindow> Open(const EngineLibrary& engine,
                                                 const Options& options, HostWindow& hostWindow,
                                                 Messages& messages);

  /// Must get the engine's notifications.
  HWND GetHandle() const { return application.GetWindow(); }

  /// Shows an update, and what is wrong with the reception.
  void ShowUpdate(const Update& update);
  /// Shows what is wrong with the reception while no updates come.
  void ShowReception(const Update& update);
  void SetTitle(const std::string& title);

  // For browsers.

  /// Without a display nothing is drawn while nobody watches. At the start nobody does.
  void SetWatched(bool isWatched);
  /// Answers a touch, key or wish. True when the user leaves the views by it.
  bool TakeInput(const RemoteInput& input);
  /// Whether others may choose the size: no display and no picture file does.
  bool MayFit() const { return display == nullptr && !writesPictures; }

  void Raise() { display->Raise(); }

  int GetView() const { return application.GetView(); }
  /// False while a page lies over the views.
  bool ShowsViews() const { return application.ShowsViews(); }
  /// Gives the choices of the pages that the engine does not keep to the settings.
  void KeepChoices() const { application.KeepChoices(); }

  app::WideString DescribeSource() const override { return sourceName; }
  app::WideString DescribeTrouble() const override { return trouble; }
  void OnUpdate() override { hostWindow.NoteUpdate(); }
  void OnQuit() override { hostWindow.Post(HostWindow::Event::STOP); }
  void ToggleFullScreen() override;

 private:
  ApplicationWindow(const EngineLibrary& engine, const Options& options, HostWindow& hostWindow);

  void Take(const Update& update);
  /// Makes the device's screen as large as the frame; the application draws for it then.
  void FollowFrame(const Options& options, int width, int height) const;
  /// Handles a message of this window at once.
  void Dispatch(UINT message, WPARAM wParam, LPARAM lParam) const;
  void DispatchNotifications() const;
  void Answer(const RemoteInput& input) const;
  /// False when there is no display; `error` is the reason then.
  bool OpenDisplay(const Options& options, std::string& error);

  const EngineLibrary& engine;
  HostWindow& hostWindow;
  const bool writesPictures;
  /// Nothing is drawn.
  bool isAsleep = false;
  /// The engine has taken a position.
  bool wasUpdated = false;
  app::WideString sourceName;
  app::WideString trouble;
  app::Application application;
  /// Null when only browsers show the window.
  std::unique_ptr<handheld::Display> display;
};

}  // namespace host
