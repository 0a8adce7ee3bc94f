#pragma once

#include "render/GdiObject.h"

namespace ferolin {

class Canvas;

/// A pen for dashed lines of one pixel. Between the dashes the background shows.
class DashedPen {
 public:
  explicit DashedPen(COLORREF color) : pen(CreatePen(PS_DASH, 1, color)) {}

  void DrawLine(Canvas& canvas, int x1, int y1, int x2, int y2) const;

 private:
  Pen pen;
};

}  // namespace ferolin
