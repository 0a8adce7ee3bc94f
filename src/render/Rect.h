// Rectangles; right and bottom edges lie outside.
#pragma once

#include <windows.h>

namespace ferolin {

constexpr bool IsEmpty(const RECT& rect) {
  return rect.left >= rect.right || rect.top >= rect.bottom;
}

/// The rectangle with all sides moved inwards; outwards by a negative margin.
constexpr RECT Inset(const RECT& rect, LONG margin) {
  return {rect.left + margin, rect.top + margin, rect.right - margin, rect.bottom - margin};
}

}  // namespace ferolin
