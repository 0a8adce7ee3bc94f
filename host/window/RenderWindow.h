// The window that the engine draws into.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "handheld.h"

namespace host {

/// A visible window of the device; belongs to the thread that makes it.
class RenderWindow {
 public:
  /// Size in pixels, above 0. Throws HostError when the window cannot be made.
  RenderWindow(int width, int height);
  RenderWindow(const RenderWindow&) = delete;
  RenderWindow& operator=(const RenderWindow&) = delete;
  ~RenderWindow();

  HWND GetHandle() const { return window; }

  /// Waits for the engine's next frame since the last call and returns it. Nothing when no frame
  /// comes within two seconds.
  std::optional<handheld::Pixels> AwaitFrame();

 private:
  HWND window;
  std::uint64_t versionTaken = 0;
};

}  // namespace host
