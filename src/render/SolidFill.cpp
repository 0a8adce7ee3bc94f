#include "render/SolidFill.h"

#include "render/GdiObject.h"

namespace ferolin {

void FillSolid(HDC dc, const RECT& rect, COLORREF color) {
  const Brush brush(CreateSolidBrush(color));
  FillRect(dc, &rect, brush.get());
}

}  // namespace ferolin
