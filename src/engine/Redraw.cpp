#include "engine/Redraw.h"

#include "base/Threads.h"
#include "engine/WidgetTable.h"
#include "widgets/Widget.h"

namespace ferolin {

namespace {

constexpr DWORD FRAME_PAUSE_MS = 10;
constexpr int LOWEST_PRIORITY = 5;

bool IsShown(HWND window) {
  return IsWindow(window) && IsWindowVisible(window);
}

}  // namespace

Widget* Redraw::GetCurrentWidget() const {
  return widgets.Get(curRenderWidget);
}

bool Redraw::CanDraw() const {
  return IsShown(renderWindow) && GetCurrentWidget() != nullptr;
}

/// A slow view slows updates down instead of losing frames.
void Redraw::Request() {
  if (!CanDraw()) {
    return;
  }
  const LockGuard guard(redrawLock);
  Wait();
  redrawThread = CreateThread(nullptr, 0, &Redraw::ThreadProc, this, 0, nullptr);
  SetThreadPriority(redrawThread, LOWEST_PRIORITY);
}

void Redraw::Wait() {
  const LockGuard guard(redrawLock);
  WaitForThread(redrawThread, FRAME_PAUSE_MS);
  if (redrawThread != INVALID_HANDLE_VALUE) {
    CloseHandle(redrawThread);
    redrawThread = INVALID_HANDLE_VALUE;
  }
}

DWORD WINAPI Redraw::ThreadProc(LPVOID argument) {
  static_cast<Redraw*>(argument)->DrawFrame();
  return 0;
}

/// The lock makes it wait for a frame that is being drawn into the window so far.
void Redraw::SetRenderWindow(HWND window) {
  const LockGuard guard(dataLock);
  renderWindow = window;
}

/// A view that has just become current shows its buttons for a while. The window is read under the
/// lock, so that no frame lands in one that was taken away.
void Redraw::DrawFrame() {
  const int index = curRenderWidget;
  Widget* widget = widgets.Get(index);
  const LockGuard guard(dataLock);
  const HWND window = renderWindow;
  if (IsShown(window) && widget != nullptr) {
    if (index != lastDrawnWidget) {
      widget->ShowBars();
    }
    widget->Draw(window);
  }
  lastDrawnWidget = index;
}

}  // namespace ferolin
