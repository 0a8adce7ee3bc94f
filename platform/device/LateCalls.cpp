// Functions of later devices only. A library that imports them by name does not load on earlier
// ones.

#include <windows.h>

namespace {

/// COREDLL is loaded in every process at all times.
FARPROC FindLate(LPCWSTR name) {
  const HMODULE coredll = LoadLibraryW(TEXT("coredll.dll"));
  return coredll != nullptr ? GetProcAddressW(coredll, name) : nullptr;
}

using AlphaBlendCall = decltype(&AlphaBlend);
/// Looked up at start-up, by one thread. Null on devices without it.
const auto ALPHA_BLEND =
    reinterpret_cast<AlphaBlendCall>(reinterpret_cast<void (*)()>(FindLate(TEXT("AlphaBlend"))));

}  // namespace

extern "C" {

/// Exists since Windows CE 5.0, though not on every device. Without it nothing is drawn.
BOOL WINAPI AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, BLENDFUNCTION blend) {
  return ALPHA_BLEND != nullptr ? ALPHA_BLEND(dc, x, y, width, height, source, sourceX, sourceY,
                                              sourceWidth, sourceHeight, blend)
                                : FALSE;
}

}  // extern "C"
