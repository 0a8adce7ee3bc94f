// The window that the engine draws into.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "handheld.h"

namespace host {

/// A visible window of the device, of the thread that makes it.
class RenderWindow {
 public:
  /// Size in pixels, above 0. Throws HostError when there is no window to be had.
  RenderWindow(int width, int height);
  RenderWindow(const RenderWindow&) = delete;
  RenderWindow& operator=(const RenderWindow&) = delete;
  ~RenderWindow();

  HWND GetHandle() const { return window; }

  /// What the engine has drawn since the last call; waits for it. Nothing when it draws nothing for
  /// a long time.
  std::optional<handheld::Pixels> AwaitFrame();

 private:
  HWND window;
  std::uint64_t versionTaken = 0;
};

}  // namespace host
