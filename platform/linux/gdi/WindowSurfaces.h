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

/// Pixels of one window (or of the bare screen). Held by the contexts that draw into it.
struct WindowSurface {
  WindowSurface(int width, int height);

  bool WasDrawnInto() const;

  /// Taken for every access to the pixels.
  std::mutex mutex;
  std::vector<std::uint32_t> pixels;
  Raster raster;
  /// Grows whenever something was drawn.
  std::uint64_t version;
};

class WindowSurfaces {
 public:
  static WindowSurfaces& Instance();

  /// Surface as large as the window is now; what was drawn before stays in its upper left corner. Null for the whole
  /// screen. Empty when there is no such window.
  std::shared_ptr<WindowSurface> GetSurface(HWND window);

  /// The same, but only if something was ever drawn.
  std::shared_ptr<WindowSurface> FindDrawn(HWND window) const;

 private:
  void ForgetClosedWindows();

  mutable std::mutex mutex;
  std::map<HWND, std::shared_ptr<WindowSurface>> surfaces;
};

}  // namespace handheld::gdi
