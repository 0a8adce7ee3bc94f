#pragma once

#include <windows.h>

namespace ferolin {

/// A bitmap in the format of frames: 16 bits a pixel (5-5-5), rows from the bottom up, 96 dpi.
/// `bits` receives the address of its pixels. The caller deletes it. Null without memory or size.
HBITMAP CreateFrameBitmap(HDC dc, LONG width, LONG height, void** bits);

}  // namespace ferolin
