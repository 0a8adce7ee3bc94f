#pragma once

#include <string>

#include "render/GdiObject.h"

namespace ferolin {

class Canvas;

/// Face and size of a kind of text in a view, with the font made from them at first use.
class TextStyle {
 public:
  /// The upright font; owned here. Set face and size before the first call.
  HFONT GetFont(Canvas& canvas);

  std::string face;  ///< 8-bit text in the ANSI code page
  int size = 0;      ///< height of the character cell in logical pixels

 private:
  Font font;
};

}  // namespace ferolin
