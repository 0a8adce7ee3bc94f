#pragma once

#include <windows.h>

#include <algorithm>
#include <array>

#include "widgets/path/LinePatterns.h"
#include "widgets/path/PathPicture.h"

namespace ferolin {

/// Draws a great many lines of one pixel's width and one colour, passing over those that would
/// change nothing. All lines together give the same picture as if each were drawn. What keeps a
/// line's picture unchanged:
/// - it lights its first pixel and leaves its last one to what follows, which lights it for sure;
/// - it stays inside the rectangle that its ends span.
class PathStrokes {
 public:
  /// Lines go into the picture, which has the size of the area: its pixel (0, 0) is pixel
  /// (area.left, area.top) of the lines. Both are borrowed; the patterns are prepared.
  PathStrokes(PathPicture& target, LinePatterns& thePatterns, const RECT& theArea)
      : picture(target),
        pixels(target.GetPixels().From({theArea.left, theArea.top})),
        patterns(thePatterns),
        area(theArea) {}
  ~PathStrokes() { Flush(); }
  PathStrokes(const PathStrokes&) = delete;
  PathStrokes& operator=(const PathStrokes&) = delete;

  const RECT& GetArea() const { return area; }

  /// Lines that stay inside a rectangle, which may reach beyond the area, are drawn already, from
  /// now on.
  void Keep(const RECT& rect) { kept = rect; }

  /// Whether there is a pixel of a rectangle (all edges included) in the area.
  bool CanShow(const RECT& rect) const {
    return rect.right >= area.left && rect.left < area.right && rect.bottom >= area.top &&
           rect.top < area.bottom;
  }

  /// Whether lines that stay inside a rectangle (all edges included) can light any pixel that is
  /// not lit yet. May be true when they cannot.
  bool CanLight(const RECT& rect) const {
    return CanShow(rect) && !IsKept(rect) && (rect.left != rect.right || rect.top != rect.bottom) &&
           !(IsSmall(rect) && AreAllLit(rect));
  }

  bool IsInside(POINT point) const {
    // All in one comparison each way, for there are very many.
    return static_cast<ULONG>(point.x - area.left) < static_cast<ULONG>(area.right - area.left) &&
           static_cast<ULONG>(point.y - area.top) < static_cast<ULONG>(area.bottom - area.top);
  }

  /// The pixel is to be inside the area. May be false when it is lit.
  bool IsLit(POINT point) const { return pixels.IsLit(point); }

  void Light(POINT point) {
    if (IsInside(point)) {
      pixels.Light(point);
    }
  }

  void Draw(POINT from, POINT to) {
    Light(from);
    if (!AreNeighbours(from, to)) {
      DrawFar(from, to);
    }
  }

  /// The same, faster, for a line that stays inside the area and that the patterns cover.
  void DrawInside(POINT from, POINT to) {
    pixels.Light(from);
    if (!AreNeighbours(from, to)) {
      DrawShortLineInside(from, to);
    }
  }

 private:
  static constexpr int RUN_LENGTH = 256;
  static constexpr LONG FEW_PIXELS = 16;

  bool IsKept(const RECT& rect) const {
    return rect.left >= kept.left && rect.right < kept.right && rect.top >= kept.top &&
           rect.bottom < kept.bottom;
  }
  static bool IsSmall(const RECT& rect) {
    const LONG width = rect.right - rect.left + 1;
    const LONG height = rect.bottom - rect.top + 1;
    return width <= FEW_PIXELS && height <= FEW_PIXELS && width * height <= FEW_PIXELS;
  }
  static bool AreNeighbours(POINT a, POINT b) {
    return static_cast<ULONG>(b.x - a.x + 1) <= 2 && static_cast<ULONG>(b.y - a.y + 1) <= 2;
  }
  bool AreAllLit(const RECT& rect) const;
  void DrawFar(POINT from, POINT to);
  void DrawShortLine(POINT from, POINT to);
  void DrawShortLineInside(POINT from, POINT to);
  void DrawLine(POINT from, POINT to);
  void Flush();

  PathPicture& picture;
  PathPicture::Pixels pixels;
  LinePatterns& patterns;
  RECT area;
  RECT kept = {};
  std::array<POINT, RUN_LENGTH> run;  ///< a line through points, not drawn yet
  int runLength = 0;
};

}  // namespace ferolin
