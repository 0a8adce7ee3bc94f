#include "render/TextStyle.h"

#include "render/Canvas.h"

namespace ferolin {

HFONT TextStyle::GetFont(Canvas& canvas) {
  if (font == nullptr) {
    font = canvas.MakeFontA(face, size, 0);
  }
  return font.get();
}

}  // namespace ferolin
