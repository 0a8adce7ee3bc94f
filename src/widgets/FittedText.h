#pragma once

#include <windows.h>

#include "base/WideString.h"
#include "render/GdiObject.h"

namespace ferolin {

class Canvas;

/// A text in the largest font that fits. Sizes go down in steps of 5; the first one below 6 is
/// taken in any case.
class FittedText {
 public:
  FittedText(Canvas& canvas, WideStringView face, int largestSize, WideString text, SIZE available);

  SIZE GetExtent() const { return extent; }
  int GetFontSize() const { return fontSize; }
  void Draw(int x, int y, COLORREF color) const;

 private:
  void MakeFont(WideStringView face);

  Canvas& canvas;
  WideString text;
  int fontSize;
  Font font;
  SIZE extent = {};
};

}  // namespace ferolin
