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

bool TriesDisplay(const Options& options) {
  return WantsWindow(options) &&
         (options.windowUse == Options::WindowUse::ALWAYS || handheld::Display::IsPresent());
}

LPARAM PackPoint(const RemoteInput& input) {
  constexpr int LOW_WORD = 0xFFFF;
  return static_cast<LPARAM>(static_cast<DWORD>(input.y & LOW_WORD) << 16 |
                             static_cast<DWORD>(input.x & LOW_WORD));
}

}  // namespace

std::unique_ptr<ApplicationWindow> ApplicationWindow::Open(const EngineLibrary& engine,
                                                           const Options& options,
                                                           HostWindow& hostWindow,
                                                           Messages& messages) {
  const bool triesDisplay = TriesDisplay(options);
  if (!triesDisplay && !options.web) {
    return nullptr;
  }
  std::unique_ptr<ApplicationWindow> window(new ApplicationWindow(engine, options, hostWindow));
  std::string error;
  if (triesDisplay && !window->OpenDisplay(options, error)) {
    if (options.windowUse == Options::WindowUse::ALWAYS) {
      throw HostError("cannot open a window: " + error);
    }
    messages.Say("no window is opened: " + error);
  }
  window->isAsleep = window->MayFit();
  return window->display != nullptr || options.web ? std::move(window) : nullptr;
}

ApplicationWindow::ApplicationWindow(const EngineLibrary& engine, const Options& options,
                                     HostWindow& hostWindow)
    : engine(engine),
      hostWindow(hostWindow),
      writesPictures(WantsPictures(options)),
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
  wasUpdated = true;
  if (!isAsleep) {
    application.ShowUpdate();
  }
}

void ApplicationWindow::ShowReception(const Update& update) {
  Take(update);
  if (!isAsleep) {
    application.ShowReception();
  }
}

void ApplicationWindow::SetTitle(const std::string& title) {
  if (display != nullptr) {
    display->SetTitle(title);
  }
}

void ApplicationWindow::ToggleFullScreen() {
  if (display != nullptr) {
    display->ToggleFullscreen();
  }
}

/// The first who watches gets a new picture at once.
void ApplicationWindow::SetWatched(bool isWatched) {
  if (MayFit()) {
    isAsleep = !isWatched;
  }
  if (isAsleep) {
    engine().SetRenderWindow(nullptr);
    return;
  }
  if (application.ShowsViews()) {
    engine().SetRenderWindow(GetHandle());
  }
  if (wasUpdated) {
    application.ShowUpdate();
  }
  Dispatch(WM_SIZE, 0, 0);
}

bool ApplicationWindow::TakeInput(const RemoteInput& input) {
  Answer(input);
  DispatchNotifications();
  // The application asks its window to close; others still look at it.
  MSG message = {};
  return PeekMessageW(&message, GetHandle(), WM_CLOSE, WM_CLOSE, PM_REMOVE) != FALSE;
}

void ApplicationWindow::Answer(const RemoteInput& input) const {
  switch (input.kind) {
    case RemoteInput::Kind::DOWN:
      Dispatch(WM_LBUTTONDOWN, 0, PackPoint(input));
      break;
    case RemoteInput::Kind::MOVE:
      Dispatch(WM_MOUSEMOVE, 0, PackPoint(input));
      break;
    case RemoteInput::Kind::UP:
      Dispatch(WM_LBUTTONUP, 0, PackPoint(input));
      break;
    case RemoteInput::Kind::DOUBLE_TAP:
      Dispatch(WM_LBUTTONDBLCLK, 0, PackPoint(input));
      Dispatch(WM_LBUTTONUP, 0, PackPoint(input));
      break;
    case RemoteInput::Kind::KEY:
      Dispatch(WM_KEYDOWN, input.key, 0);
      break;
    case RemoteInput::Kind::STEP_VIEW:
      if (ShowsViews()) {
        Dispatch(WM_KEYDOWN, input.step > 0 ? VK_RIGHT : VK_LEFT, 0);
      }
      break;
    case RemoteInput::Kind::FIT:
      if (MayFit()) {
        handheld::SetScreen(input.width, input.height, input.dpi);
        Dispatch(WM_SETTINGCHANGE, 0, 0);
      }
      break;
  }
}

void ApplicationWindow::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) const {
  MSG now = {};
  now.hwnd = GetHandle();
  now.message = message;
  now.wParam = wParam;
  now.lParam = lParam;
  DispatchMessageW(&now);
}

/// A button's notification, so that what follows from it is known.
void ApplicationWindow::DispatchNotifications() const {
  const UINT notification = engine().GetWndMessageID();
  MSG message = {};
  while (PeekMessageW(&message, GetHandle(), notification, notification, PM_REMOVE) != FALSE) {
    DispatchMessageW(&message);
  }
}

}  // namespace host
