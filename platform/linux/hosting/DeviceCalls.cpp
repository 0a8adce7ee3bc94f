#include <ferolin-device.h>
#include <unistd.h>
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>

#include "core/LastError.h"
#include "handheld.h"
#include "modules/Modules.h"

using handheld::Guarded;

namespace {

namespace fs = std::filesystem;

constexpr LPCWSTR WINDOW_CLASS = TEXT("FerolinDevice");
/// The message that GetWndMessageID gives the number of.
constexpr LPCWSTR NOTIFICATION = TEXT("UpdateGPS");
constexpr DWORD WITHOUT_END = 0xFFFFFFFF;
// Size of the handheld's screen.
constexpr int SCREEN_WIDTH = 240;
constexpr int SCREEN_HEIGHT = 320;

const char* OrEmpty(const char* text) {
  return text == nullptr ? "" : text;
}

/// The next notification of the window that has come; FEROLIN_TIMED_OUT without one.
int TakeNotification(HWND window, UINT notification) {
  MSG message = {};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.hwnd == window && message.message == notification) {
      return static_cast<int>(message.lParam);
    }
    DispatchMessageW(&message);
  }
  return FEROLIN_TIMED_OUT;
}

}  // namespace

extern "C" {

int ferolin_set_folder(const char* path) {
  return Guarded<int>(0, [&] {
    if (handheld::Modules::Instance().HasModules()) {
      return 0;
    }
    std::error_code error;
    fs::create_directories(OrEmpty(path), error);
    const fs::path folder = fs::canonical(OrEmpty(path), error);
    if (error || access(folder.c_str(), W_OK | X_OK) != 0) {
      return 0;
    }
    handheld::SetProgramFolder(folder.string());
    return 1;
  });
}

void ferolin_set_language(const char* abbreviation) {
  Guarded<int>(0, [&] {
    handheld::SetLanguage(OrEmpty(abbreviation));
    return 1;
  });
}

void ferolin_map_serial_port(const char* port, const char* device) {
  Guarded<int>(0, [&] {
    handheld::MapSerialPort(OrEmpty(port) + std::string(":"), OrEmpty(device));
    return 1;
  });
}

void ferolin_set_resolution(int dpi) {
  handheld::SetScreen(SCREEN_WIDTH, SCREEN_HEIGHT, dpi);
}

HWND ferolin_create_window(int width, int height) {
  WNDCLASSW description = {};
  description.lpfnWndProc = DefWindowProcW;
  description.lpszClassName = WINDOW_CLASS;
  RegisterClassW(&description);
  return CreateWindowExW(0, WINDOW_CLASS, TEXT("Ferolin"), WS_POPUP | WS_VISIBLE, 0, 0, width,
                         height, nullptr, nullptr, nullptr, nullptr);
}

void ferolin_destroy_window(HWND window) {
  DestroyWindow(window);
}

int ferolin_wait(HWND window, int milliseconds) {
  using Clock = std::chrono::steady_clock;
  const UINT notification = RegisterWindowMessageW(NOTIFICATION);
  const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
  while (true) {
    const int taken = TakeNotification(window, notification);
    const auto now = Clock::now();
    if (taken != FEROLIN_TIMED_OUT || (milliseconds >= 0 && now >= end)) {
      return taken;
    }
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(end - now);
    MsgWaitForMultipleObjectsEx(0, nullptr,
                                milliseconds < 0 ? WITHOUT_END : static_cast<DWORD>(rest.count()),
                                QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
}

int ferolin_copy_picture(HWND window, uint32_t* pixels, int width, int height) {
  return Guarded<int>(0, [&] {
    const handheld::Pixels drawn = handheld::WindowPixels(window);
    if (pixels == nullptr || drawn.rows.empty() || drawn.width != width || drawn.height != height) {
      return 0;
    }
    std::ranges::copy(drawn.rows, pixels);
    return 1;
  });
}

}  // extern "C"
