// The pixels of the windows.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "gdi/Raster.h"

namespace handheld::gdi {

/// Pixels of one window or of the whole screen. Owned by the contexts that draw into it and by
/// WindowSurfaces.
struct WindowSurface {
  WindowSurface(int width, int height);

  bool WasDrawnInto() const;

  /// Held for every access to the pixels.
  std::mutex mutex;
  std::vector<std::uint32_t> pixels;
  Raster raster;
  /// Grows with every drawing.
  std::uint64_t version;
};

class WindowSurfaces {
 public:
  static WindowSurfaces& Instance();

  /// Surface in the window's present size; earlier drawing stays in the upper left corner. Null
  /// `window` means the whole screen. Null for an unknown window.
  std::shared_ptr<WindowSurface> GetSurface(HWND window);

  /// Surface of the window; null when nothing was drawn yet.
  std::shared_ptr<WindowSurface> FindDrawn(HWND window) const;

 private:
  void ForgetClosedWindows();

  mutable std::mutex mutex;
  std::map<HWND, std::shared_ptr<WindowSurface>> surfaces;
};

}  // namespace handheld::gdi
