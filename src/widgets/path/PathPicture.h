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
  /// The pixels in the picture's memory, good until it is made anew. Those that are asked for must
  /// be some of the picture's.
  class Pixels {
   public:
    Pixels() = default;
    /// `theOrigin` is pixel (0, 0). Rows go from the bottom up.
    Pixels(std::uint16_t* theOrigin, LONG theRowLength)
        : origin(theOrigin), rowLength(theRowLength) {}

    /// The same, what was pixel (0, 0) being called `corner`.
    Pixels From(POINT corner) const {
      Pixels moved = *this;
      moved.offset += corner.y * rowLength - corner.x;
      return moved;
    }

    /// Those to the right of it follow.
    std::uint16_t* At(POINT pixel) const {
      return origin + (offset + pixel.x - pixel.y * rowLength);
    }
    /// What lit pixels are in memory.
    void SetLit(std::uint16_t value) { lit = value; }

    /// A line of this colour that was drawn into the context a moment ago may not be seen yet.
    bool IsLit(POINT pixel) const { return *At(pixel) == lit; }
    void Light(POINT pixel) const { *At(pixel) = lit; }

   private:
    std::uint16_t* origin = nullptr;
    LONG offset = 0;
    LONG rowLength = 0;
    std::uint16_t lit = 0;
  };

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

  const Pixels& GetPixels() const { return pixels; }
  bool IsLit(LONG x, LONG y) const { return pixels.IsLit({x, y}); }
  void Light(LONG x, LONG y) { pixels.Light({x, y}); }

 private:
  void ClearColumns(LONG left, LONG right, LONG y);
  void TakePen(COLORREF color);

  Surface surface;
  HPEN pen = nullptr;
  HGDIOBJ firstPen = nullptr;  ///< that the context came with
  SIZE size = {};
  Pixels pixels;
  std::uint16_t unlit = 0;
};

}  // namespace ferolin
