#pragma once

#include <windows.h>

namespace ferolin {

class Canvas;

/// A pen for dashed lines of one pixel, made when it is first used and kept.
class DashedPen {
 public:
  DashedPen() = default;
  ~DashedPen();
  DashedPen(const DashedPen&) = delete;
  DashedPen& operator=(const DashedPen&) = delete;

  /// Always with the colour of the first call. Between the dashes the background shows.
  void DrawLine(Canvas& canvas, COLORREF color, int x1, int y1, int x2, int y2);

 private:
  HPEN pen = nullptr;
};

}  // namespace ferolin
