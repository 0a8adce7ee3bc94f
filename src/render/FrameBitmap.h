#pragma once

#include <windows.h>

namespace ferolin {

/// A bitmap of the form that frames are drawn in: 16 bits a pixel (5-5-5), rows from the bottom up,
/// 96 dpi. `bits` receives the address of its pixels. The caller's to delete; null when there is no
/// memory or no size.
HBITMAP CreateFrameBitmap(HDC dc, LONG width, LONG height, void** bits);

}  // namespace ferolin
