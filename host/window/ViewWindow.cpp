#include "window/ViewWindow.h"

#include <utility>

#include "base/HostError.h"
#include "window/WindowTitle.h"

namespace host {

namespace {

/// Refresh rate of a display, 60 Hz.
constexpr std::chrono::milliseconds REFRESH_INTERVAL(16);

bool InsistsOnDisplay(const Options& options) {
  return options.windowUse == Options::WindowUse::ALWAYS;
}

bool TriesDisplay(const Options& options) {
  return WantsWindow(options) && (InsistsOnDisplay(options) || handheld::Display::IsPresent());
}

bool KeepsFrames(const Options& options) {
  return !options.framesFolder.empty() || !options.shotFile.empty();
}

/// Null when the display cannot be opened and the user does not insist on it.
std::unique_ptr<handheld::Display> OpenDisplay(const Options& options, const RenderWindow& window,
                                               Messages& messages) {
  std::string error;
  auto display = handheld::Display::Open(window.GetHandle(), options.fullscreen, error);
  if (display == nullptr && InsistsOnDisplay(options)) {
    throw HostError("cannot open a window: " + error);
  }
  if (display == nullptr) {
    messages.Say("no window is opened: " + error);
  }
  return display;
}

}  // namespace

std::unique_ptr<ViewWindow> ViewWindow::Open(const EngineLibrary& engine, const Options& options,
                                             HostWindow& hostWindow, Messages& messages) {
  if (!TriesDisplay(options) && !KeepsFrames(options)) {
    return nullptr;
  }
  auto window = std::make_unique<RenderWindow>(options.size.width, options.size.height);
  auto display = TriesDisplay(options) ? OpenDisplay(options, *window, messages) : nullptr;
  if (display == nullptr && !KeepsFrames(options)) {
    return nullptr;
  }
  return std::unique_ptr<ViewWindow>(
      new ViewWindow(engine, options, hostWindow, messages, std::move(window), std::move(display)));
}

ViewWindow::ViewWindow(const EngineLibrary& engine, const Options& options, HostWindow& hostWindow,
                       Messages& messages, std::unique_ptr<RenderWindow> window,
                       std::unique_ptr<handheld::Display> display)
    : engine(engine),
      sourceName(DescribeSource(options)),
      window(std::move(window)),
      display(std::move(display)),
      control(engine(), this->window->GetHandle(), options.picture,
              MakeActions(hostWindow, messages)) {
  hostWindow.SetListeners([this](LPARAM code) { control.OnButton(code); },
                          [this](const MSG& message) { control.OnMessage(message); });
  engine().SetRenderWindow(this->window->GetHandle());
}

ViewWindow::~ViewWindow() {
  engine().SetRenderWindow(nullptr);
}

ViewControl::Actions ViewWindow::MakeActions(HostWindow& hostWindow, Messages& messages) {
  ViewControl::Actions actions;
  actions.close = [&hostWindow] { hostWindow.Post(HostWindow::Event::STOP); };
  actions.toggleFullscreen = [this] {
    if (display) {
      display->ToggleFullscreen();
    }
  };
  actions.say = [&messages](const std::string& text) { messages.Say(text); };
  return actions;
}

void ViewWindow::Refresh(const Update& update) {
  const auto now = std::chrono::steady_clock::now();
  if (display == nullptr || now < nextRefresh) {
    return;
  }
  nextRefresh = now + REFRESH_INTERVAL;
  display->Update();
  ShowTitle(update);
}

void ViewWindow::ShowTitle(const Update& update) {
  const std::string title = WindowTitle(update, control.GetCurrentViewName(), sourceName);
  if (title != titleShown) {
    display->SetTitle(title);
    titleShown = title;
  }
}

}  // namespace host
