#include "window/ApplicationWindow.h"

#include <algorithm>

#include "base/HostError.h"
#include "handheld.h"
#include "window/Picture.h"

namespace host {

namespace {

/// Smaller frames show a smaller copy of a picture of this size.
constexpr Options::Size SMALLEST_PICTURE = {176, 144};

/// Pictures in files all have one size, and one wanted on the full screen is scaled to it.
bool FollowsFrame(const Options& options) {
  return !WantsPictures(options) && !(options.fullscreen && options.isSizeChosen);
}

}  // namespace

std::unique_ptr<ApplicationWindow> ApplicationWindow::Open(const EngineLibrary& engine,
                                                           const Options& options,
                                                           HostWindow& hostWindow,
                                                           Messages& messages) {
  std::unique_ptr<ApplicationWindow> window(new ApplicationWindow(engine, options, hostWindow));
  std::string error;
  if (window->OpenDisplay(options, error)) {
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

bool ApplicationWindow::OpenDisplay(const Options& options, std::string& error) {
  display = handheld::Display::Open(GetHandle(), options.fullscreen, error);
  if (display != nullptr && FollowsFrame(options)) {
    display->ObserveSize(
        [this, &options](int width, int height) { FollowFrame(options, width, height); });
  }
  return display != nullptr;
}

void ApplicationWindow::FollowFrame(const Options& options, int width, int height) const {
  const Options::Size size = {std::max(width, SMALLEST_PICTURE.width),
                              std::max(height, SMALLEST_PICTURE.height)};
  handheld::SetScreen(size.width, size.height, GetDpi(options, size));
  PostMessageW(GetHandle(), WM_SETTINGCHANGE, 0, 0);
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
