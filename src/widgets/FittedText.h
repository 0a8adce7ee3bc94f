#pragma once

#include <windows.h>

#include "base/WideString.h"

namespace ferolin {

class Canvas;

/// A text in the largest font that fits: sizes go down in steps of 5, and the first one below 6 is
/// taken in any case. Owns the font.
class FittedText {
 public:
  FittedText(Canvas& surface, WideStringView face, int largestSize, WideString content,
             SIZE available);
  ~FittedText();
  FittedText(const FittedText&) = delete;
  FittedText& operator=(const FittedText&) = delete;

  SIZE GetExtent() const { return extent; }
  int GetFontSize() const { return fontSize; }
  void Draw(int x, int y, COLORREF color) const;

 private:
  void MakeFont(WideStringView face);

  Canvas& canvas;
  WideString text;
  int fontSize;
  HFONT font = nullptr;
  SIZE extent = {};
};

}  // namespace ferolin
