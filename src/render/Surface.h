#pragma once

#include <windows.h>

namespace ferolin {

/// A memory device context with a bitmap selected into it; both are owned. Empty at start: null
/// handles, size 0 x 0. Whoever holds one calls Release; there is no destructor, so that one can
/// live as long as the process.
class Surface {
 public:
  constexpr Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  /// Makes the context, unless there is one, after the model of `dc` (null: of the screen).
  void EnsureDC(HDC model);

  /// Deletes the bitmap there is, and takes over and selects `bitmap` unless that is null.
  void SetBitmap(HBITMAP bitmap);

  /// Selects the own bitmap again after others were selected for a while.
  void SelectBitmap() const;

  void Release();

  bool HasBitmap() const { return bitmap != nullptr; }
  SIZE GetSize() const;
  HDC GetDC() const { return dc; }

 private:
  HDC dc = nullptr;
  HGDIOBJ previousBitmap = nullptr;
  HBITMAP bitmap = nullptr;
};

/// Keeps an object selected into a context for a scope and puts back what was there before. Frees
/// nothing.
class Selection {
 public:
  Selection(HDC target, HGDIOBJ object) : dc(target), previous(SelectObject(target, object)) {}
  ~Selection() { SelectObject(dc, previous); }
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

 private:
  HDC dc;
  HGDIOBJ previous;
};

}  // namespace ferolin
