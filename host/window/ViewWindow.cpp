#include "window/ViewWindow.h"

#include <utility>

#include "window/Picture.h"
#include "window/ViewNames.h"
#include "window/WindowTitle.h"

namespace host {

namespace {

bool KeepsFrames(const Options& options) {
  return !options.framesFolder.empty() || !options.shotFile.empty();
}

}  // namespace

std::unique_ptr<ViewWindow> ViewWindow::Open(const EngineLibrary& engine, const Options& options,
                                             HostWindow& hostWindow, Messages& messages) {
  std::unique_ptr<ApplicationWindow> shown =
      ApplicationWindow::Open(engine, options, hostWindow, messages);
  if (shown == nullptr && !KeepsFrames(options)) {
    return nullptr;
  }
  return std::unique_ptr<ViewWindow>(new ViewWindow(engine, options, std::move(shown)));
}

ViewWindow::ViewWindow(const EngineLibrary& engine, const Options& options,
                       std::unique_ptr<ApplicationWindow> shown)
    : engine(engine), sourceName(DescribeSource(options)), shown(std::move(shown)) {
  if (HasDisplay()) {
    frames = std::make_unique<RenderWindow>(this->shown->GetHandle());
    return;
  }
  frames = std::make_unique<RenderWindow>(options.size.width, options.size.height);
  ApplyPicture(engine(), options.picture);
  engine().SetCurRenderWidget(GetChosenView(engine(), options.picture));
  engine().SetRenderWindow(frames->GetHandle());
}

ViewWindow::~ViewWindow() {
  engine().SetRenderWindow(nullptr);
}

void ViewWindow::ShowUpdate(const Update& update) {
  if (HasDisplay()) {
    shown->ShowUpdate(update);
  }
}

void ViewWindow::ShowReception(const Update& update) {
  if (HasDisplay()) {
    shown->ShowReception(update);
  }
}

void ViewWindow::ShowTitle(const Update& update) {
  if (!HasDisplay()) {
    return;
  }
  const std::string title = WindowTitle(update, GetViewName(engine(), GetView()), sourceName);
  if (title != titleShown) {
    shown->SetTitle(title);
    titleShown = title;
  }
}

void ViewWindow::Raise() {
  if (HasDisplay()) {
    shown->Raise();
  }
}

int ViewWindow::GetView() const {
  return HasDisplay() ? shown->GetView() : engine().GetCurRenderWidget();
}

Options::Picture ViewWindow::GetPicture() const {
  return DescribePicture(engine(), GetView());
}

void ViewWindow::KeepChoices() const {
  if (HasDisplay()) {
    shown->KeepChoices();
  }
}

}  // namespace host
