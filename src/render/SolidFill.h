#pragma once

#include <windows.h>

namespace ferolin {

/// Fills the rectangle with one colour, without a border.
void FillSolid(HDC dc, const RECT& rect, COLORREF color);

}  // namespace ferolin
