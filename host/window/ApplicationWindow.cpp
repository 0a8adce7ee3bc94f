#include "window/ApplicationWindow.h"

#include "base/HostError.h"
#include "handheld.h"
#include "window/Picture.h"

namespace host {

std::unique_ptr<ApplicationWindow> ApplicationWindow::Open(const EngineLibrary& engine,
                                                           const Options& options,
                                                           HostWindow& hostWindow,
                                                           Messages& messages) {
  std::unique_ptr<ApplicationWindow> window(new ApplicationWindow(engine, options, hostWindow));
  std::string error;
  if (window->OpenDisplay(options.fullscreen, error)) {
    return window;
  }
  if (options.windowUse == Options::WindowUse::ALWAYS) {
    throw HostError("cannot open a window: " + error);
  }
  messages.Say("no window is opened: " + error);
  return nullptr;
}

ApplicationWindow::ApplicationWindow(const EngineLibrary& engine, const Options& options,
                                     HostWindow& hostWindow)
    : hostWindow(hostWindow),
      sourceName(handheld::WideFromUtf8(host::DescribeSource(options))),
      application(engine.GetLoaded(), this) {
  ApplyPicture(engine(), options.picture);
  if (!application.Start(nullptr)) {
    throw HostError("cannot make a window: error " + std::to_string(GetLastError()));
  }
  application.SetView(GetChosenView(engine(), options.picture));
}

bool ApplicationWindow::OpenDisplay(bool isFullscreen, std::string& error) {
  display = handheld::Display::Open(GetHandle(), isFullscreen, error);
  return display != nullptr;
}

void ApplicationWindow::Take(const Update& update) {
  trouble = handheld::WideFromUtf8(update.notice);
  if (!update.foundReceiver.empty()) {
    sourceName = handheld::WideFromUtf8(update.foundReceiver);
  }
}

void ApplicationWindow::ShowUpdate(const Update& update) {
  Take(update);
  application.ShowUpdate();
}

void ApplicationWindow::ShowReception(const Update& update) {
  Take(update);
  application.ShowReception();
}

}  // namespace host
