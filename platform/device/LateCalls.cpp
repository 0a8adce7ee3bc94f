// Functions that only later devices have. Importing them by name would keep the library from loading on earlier ones.

#include <windows.h>

namespace {

/// COREDLL is part of every process and never leaves it.
FARPROC FindLate(LPCWSTR name) {
  const HMODULE coredll = LoadLibraryW(TEXT("coredll.dll"));
  return coredll != nullptr ? GetProcAddressW(coredll, name) : nullptr;
}

using AlphaBlendCall = decltype(&AlphaBlend);
/// Looked up at start-up, so that no two threads do it at once. Null on devices without it.
const auto ALPHA_BLEND =
    reinterpret_cast<AlphaBlendCall>(reinterpret_cast<void (*)()>(FindLate(TEXT("AlphaBlend"))));

}  // namespace

extern "C" {

/// Since Windows CE 5.0, and left out by some makers even then: nothing is drawn without it.
BOOL WINAPI AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, BLENDFUNCTION blend) {
  return ALPHA_BLEND != nullptr ? ALPHA_BLEND(dc, x, y, width, height, source, sourceX, sourceY,
                                              sourceWidth, sourceHeight, blend)
                                : FALSE;
}

}  // extern "C"
