#include "window/RenderWindow.h"

#include <chrono>
#include <string>
#include <thread>

#include "base/HostError.h"

namespace host {

namespace {

using namespace std::chrono_literals;

constexpr LPCWSTR VIEW_CLASS = TEXT("FerolinView");
/// Drawing takes a few milliseconds, on a machine under load much longer.
constexpr auto PATIENCE = 2s;
constexpr auto CHECK_INTERVAL = 200us;

}  // namespace

RenderWindow::RenderWindow(int width, int height) : isOwn(true) {
  WNDCLASSW description = {};
  description.lpfnWndProc = DefWindowProcW;
  description.lpszClassName = VIEW_CLASS;
  RegisterClassW(&description);
  window = CreateWindowExW(0, VIEW_CLASS, TEXT("Ferolin"), WS_POPUP | WS_VISIBLE, 0, 0, width,
                           height, nullptr, nullptr, nullptr, nullptr);
  if (window == nullptr) {
    throw HostError("cannot make a window: error " + std::to_string(GetLastError()));
  }
  // The first device context makes the pixels, which changes their version without a frame.
  ReleaseDC(window, GetWindowDC(window));
  versionTaken = handheld::WindowPixelsVersion(window);
}

RenderWindow::RenderWindow(HWND window)
    : window(window), isOwn(false), versionTaken(handheld::WindowPixelsVersion(window)) {}

RenderWindow::~RenderWindow() {
  if (isOwn) {
    DestroyWindow(window);
  }
}

std::optional<handheld::Pixels> RenderWindow::AwaitFrame() {
  const auto deadline = std::chrono::steady_clock::now() + PATIENCE;
  while (handheld::WindowPixelsVersion(window) == versionTaken) {
    if (std::chrono::steady_clock::now() > deadline) {
      return std::nullopt;
    }
    // Real time, not the device's Sleep: the device may run much faster.
    std::this_thread::sleep_for(CHECK_INTERVAL);
  }
  versionTaken = handheld::WindowPixelsVersion(window);
  return handheld::WindowPixels(window);
}

}  // namespace host
