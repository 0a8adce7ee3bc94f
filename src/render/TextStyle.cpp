#include "render/TextStyle.h"

#include "render/Canvas.h"

namespace ferolin {

TextStyle::~TextStyle() {
  if (font != nullptr) {
    DeleteObject(font);
  }
}

HFONT TextStyle::GetFont(Canvas& canvas) {
  if (font == nullptr) {
    font = canvas.MakeFontA(face, size, 0);
  }
  return font;
}

}  // namespace ferolin
