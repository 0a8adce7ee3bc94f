#pragma once

#include <windows.h>

#include <cstdint>

#include "render/Surface.h"

namespace ferolin {

/// A picture in two colours: background, and what of it is lit. Lines are drawn into its context,
/// which has the pen for that; single pixels are lit faster here. Owns all three. Used under the
/// engine's data lock.
class PathPicture {
 public:
  PathPicture() = default;
  ~PathPicture();
  PathPicture(const PathPicture&) = delete;
  PathPicture& operator=(const PathPicture&) = delete;

  /// Makes it this large, with nothing lit; only then may the rest be called. `model` is what its
  /// context is made like, null: like the screen's. False without memory or size: there is no
  /// picture then.
  bool Clear(HDC model, SIZE newSize, COLORREF background, COLORREF litColor);

  /// Moves everything by so many pixels, which may be negative. Where nothing has come from, the
  /// pixels stay what they were.
  void Move(LONG right, LONG down);

  /// Lights nothing any more outside of a part of the picture.
  void ClearOutside(const RECT& part);

  bool Exists() const { return surface.HasBitmap(); }
  HDC GetDC() const { return surface.GetDC(); }

  /// Lines that were drawn into the context are seen in the pixels from now on.
  void FinishDrawing() const;

  /// The pixel must be one of the picture's. A line of this colour that was drawn into the context
  /// a moment ago may not be seen yet.
  bool IsLit(LONG x, LONG y) const { return *At(x, y) == lit; }
  void Light(LONG x, LONG y) { *At(x, y) = lit; }

 private:
  void ClearColumns(LONG left, LONG right, LONG y);
  /// Rows go from the bottom up.
  std::uint16_t* At(LONG x, LONG y) const { return bits + (size.cy - 1 - y) * rowLength + x; }

  void TakePen(COLORREF color);

  Surface surface;
  HPEN pen = nullptr;
  HGDIOBJ firstPen = nullptr;  ///< that the context came with
  SIZE size = {};
  LONG rowLength = 0;  ///< in pixels
  std::uint16_t* bits = nullptr;
  std::uint16_t lit = 0;
  std::uint16_t unlit = 0;
};

}  // namespace ferolin
