#pragma once

#include <windows.h>

namespace ferolin {

/// A memory device context with a bitmap selected into it; both are owned. Empty at start: null
/// handles, size 0 x 0. The holder calls Release; there is no destructor, so that a surface can
/// live as long as the process.
class Surface {
 public:
  constexpr Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  /// Makes the context, unless there is one, compatible with `model` (null: with the screen).
  void EnsureDC(HDC model);

  /// Deletes the bitmap held so far; takes over `bitmap` and selects it. Null holds none.
  void SetBitmap(HBITMAP bitmap);

  /// Deletes bitmap and context.
  void Release();

  bool HasBitmap() const { return bitmap != nullptr; }
  SIZE GetSize() const;
  HDC GetDC() const { return dc; }

  /// False after the screen's resolution has changed since the bitmap was set. What was drawn into
  /// it may have been drawn more coarsely than the screen can show now.
  bool FitsScreen() const;

 private:
  HDC dc = nullptr;
  HGDIOBJ previousBitmap = nullptr;
  HBITMAP bitmap = nullptr;
  int resolution = 0;  ///< of the screen when the bitmap was set, in dpi
};

}  // namespace ferolin
