#pragma once

#include <windows.h>

#include <string>

namespace ferolin {

class Canvas;

/// Face and size of a kind of text in a view, with the font that is made from them when it is first
/// needed.
class TextStyle {
 public:
  TextStyle() = default;
  ~TextStyle();
  TextStyle(const TextStyle&) = delete;
  TextStyle& operator=(const TextStyle&) = delete;

  /// The upright font; owned here. Face and size are to be set before.
  HFONT GetFont(Canvas& canvas);

  std::string face;  ///< 8-bit text in the ANSI code page
  int size = 0;      ///< height of the character cell in logical pixels

 private:
  HFONT font = nullptr;
};

}  // namespace ferolin
