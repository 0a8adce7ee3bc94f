#include "render/DashedPen.h"

#include "render/Canvas.h"

namespace ferolin {

DashedPen::~DashedPen() {
  if (pen != nullptr) {
    DeleteObject(pen);
  }
}

void DashedPen::DrawLine(Canvas& canvas, COLORREF color, int x1, int y1, int x2, int y2) {
  if (pen == nullptr) {
    pen = CreatePen(PS_DASH, 1, color);
  }
  const int previousMode = SetBkMode(canvas.GetDrawingDC(), TRANSPARENT);
  canvas.DrawLineWithPen(pen, x1, y1, x2, y2);
  SetBkMode(canvas.GetDrawingDC(), previousMode);
}

}  // namespace ferolin
