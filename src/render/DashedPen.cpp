#include "render/DashedPen.h"

#include "render/Canvas.h"

namespace ferolin {

void DashedPen::DrawLine(Canvas& canvas, int x1, int y1, int x2, int y2) const {
  const int previousMode = SetBkMode(canvas.GetDrawingDC(), TRANSPARENT);
  canvas.DrawLineWithPen(pen.get(), x1, y1, x2, y2);
  SetBkMode(canvas.GetDrawingDC(), previousMode);
}

}  // namespace ferolin
