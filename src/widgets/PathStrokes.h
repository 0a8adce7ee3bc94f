#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <memory>

namespace ferolin {

/// Draws a great many lines of one pixel's width and one colour, passing over those that would
/// change nothing. All lines together give the same picture as if each were drawn. What keeps a
/// line's picture unchanged:
/// - it lights its first pixel and leaves its last one to the line that follows;
/// - it stays inside the rectangle that its ends span.
class PathStrokes {
 public:
  /// Lines go into `dc`, whose pixel (0, 0) is pixel (area.left, area.top) of the lines; what lies
  /// outside of the area need not be drawn. The pen is selected into `dc` by the caller.
  PathStrokes(HDC target, const RECT& visibleArea) : dc(target), area(visibleArea) {}
  ~PathStrokes() { Flush(); }
  PathStrokes(const PathStrokes&) = delete;
  PathStrokes& operator=(const PathStrokes&) = delete;

  /// From here on pixels are known that are lit already, which takes a byte for each of the area.
  /// Worth it for many lines.
  void RememberPixels();

  /// Whether lines that stay inside a rectangle (all edges included) can light any pixel that is
  /// not lit yet. May be true when they cannot.
  bool CanLight(const RECT& rect) const {
    return !IsOutside(rect) && (rect.left != rect.right || rect.top != rect.bottom) && !IsLit(rect);
  }

  void Draw(POINT from, POINT to) {
    if (from.x != to.x || from.y != to.y) {
      DrawLine(from, to);
    }
  }

 private:
  static constexpr int RUN_LENGTH = 256;
  static constexpr LONG FEW_PIXELS = 16;

  bool IsOutside(const RECT& rect) const {
    return rect.right < area.left || rect.left >= area.right || rect.bottom < area.top ||
           rect.top >= area.bottom;
  }
  bool IsInside(POINT point) const {
    return point.x >= area.left && point.x < area.right && point.y >= area.top &&
           point.y < area.bottom;
  }
  bool IsLit(const RECT& rect) const;
  std::uint8_t* LitAt(LONG x, LONG y) const {
    return &lit[static_cast<std::size_t>((y - area.top) * (area.right - area.left) + x -
                                         area.left)];
  }
  void DrawLine(POINT from, POINT to);
  void Flush();

  HDC dc;
  RECT area;
  /// For each pixel, whether it is known to be lit. Null until remembered, and without memory: then
  /// nothing is known.
  std::unique_ptr<std::uint8_t[]> lit;
  std::array<POINT, RUN_LENGTH> run;  ///< a line through points, not drawn yet
  int runLength = 0;
};

}  // namespace ferolin
