#include "HostWindow.h"

#include <chrono>

namespace e2e {

namespace {

constexpr const WCHAR* CLASS_NAME = TEXT("FerolinTestHost");

void RegisterHostClass() {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = CLASS_NAME;
  RegisterClassW(&windowClass);
}

}  // namespace

HostWindow::HostWindow(int width, int height) {
  RegisterHostClass();
  window = CreateWindowExW(0, CLASS_NAME, TEXT("Host"), WS_POPUP | WS_VISIBLE, 0, 0, width, height,
                           nullptr, nullptr, nullptr, nullptr);
}

void HostWindow::Destroy() {
  if (window != nullptr) {
    DestroyWindow(window);
    window = nullptr;
  }
}

std::vector<Notification> HostWindow::WaitFor(UINT message, std::size_t count, int longestMs) {
  using Clock = std::chrono::steady_clock;
  const auto deadline = Clock::now() + std::chrono::milliseconds(longestMs);
  std::vector<Notification> notifications;
  while (notifications.size() < count && Clock::now() < deadline) {
    MsgWaitForMultipleObjectsEx(0, nullptr, 100, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    const std::vector<Notification> taken = Take(message);
    notifications.insert(notifications.end(), taken.begin(), taken.end());
  }
  return notifications;
}

std::vector<Notification> HostWindow::Take(UINT message) {
  std::vector<Notification> notifications;
  MSG taken;
  while (PeekMessageW(&taken, nullptr, 0, 0, PM_REMOVE)) {
    if (taken.message == message && taken.hwnd == window) {
      notifications.push_back({taken.wParam, taken.lParam});
    } else {
      DispatchMessageW(&taken);
    }
  }
  return notifications;
}

}  // namespace e2e
