// The window that the engine draws into.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "handheld.h"

namespace host {

/// A visible window of the device. For the window's thread.
class RenderWindow {
 public:
  /// Makes a window. Size in pixels, above 0. Throws HostError when it cannot be made.
  RenderWindow(int width, int height);
  /// The window is another's, who outlives this object.
  explicit RenderWindow(HWND window);
  RenderWindow(const RenderWindow&) = delete;
  RenderWindow& operator=(const RenderWindow&) = delete;
  ~RenderWindow();

  HWND GetHandle() const { return window; }

  /// Waits for the engine's next frame since the last call and returns it. Nothing when no frame
  /// comes within two seconds.
  std::optional<handheld::Pixels> AwaitFrame();

 private:
  HWND window;
  bool isOwn;
  std::uint64_t versionTaken = 0;
};

}  // namespace host
