#include "NoText.h"

// The dynamic linker finds this one before the home's.
extern "C" int WINAPI DrawTextW(HDC, LPCWSTR, int length, RECT* rect, UINT format) {
  return app::DrawNoText(length, rect, format);
}
