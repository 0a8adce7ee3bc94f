// The redraw thread: it draws the current view once and ends.

#include "base/Threads.h"
#include "engine/Engine.h"
#include "widgets/Widget.h"

namespace ferolin {

namespace {

constexpr DWORD WAIT_PAUSE_MS = 10;
constexpr int LOWEST_PRIORITY = 5;

/// Index of the view that was current at the last redraw, whether or not it was drawn; written by
/// redraw threads only.
SharedWord<int> lastDrawnWidget = -1;

}  // namespace

bool Engine::CanRedraw() const {
  const HWND window = renderWindow;
  return IsWindow(window) && IsWindowVisible(window) && GetCurrentWidget() != nullptr;
}

/// A slow view thus slows updates down; no frame is dropped.
void Engine::RequestRedraw() {
  if (!CanRedraw()) {
    return;
  }
  const LockGuard guard(redrawLock);
  WaitForRedraw();
  redrawThread = CreateThread(nullptr, 0, &Engine::RedrawThreadProc, this, 0, nullptr);
  SetThreadPriority(redrawThread, LOWEST_PRIORITY);
}

void Engine::WaitForRedraw() {
  const LockGuard guard(redrawLock);
  WaitForThread(redrawThread, WAIT_PAUSE_MS);
  if (redrawThread != INVALID_HANDLE_VALUE) {
    CloseHandle(redrawThread);
    redrawThread = INVALID_HANDLE_VALUE;
  }
}

DWORD WINAPI Engine::RedrawThreadProc(LPVOID argument) {
  static_cast<Engine*>(argument)->Redraw();
  return 0;
}

/// Arriving at another view shows its buttons for a while.
void Engine::Redraw() {
  const int index = curRenderWidget;
  const HWND window = renderWindow;
  Widget* widget = GetWidget(index);
  if (IsWindow(window) && IsWindowVisible(window) && widget != nullptr) {
    const LockGuard guard(dataLock);
    if (index != lastDrawnWidget) {
      widget->ShowBars();
    }
    widget->Draw(window);
  }
  lastDrawnWidget = index;
}

}  // namespace ferolin
