#include "NoText.h"

#include "ApplicationDoubles.windows.h"

namespace {

int WINAPI DrawTextDouble(HDC, LPCWSTR, int length, RECT* rect, UINT format) {
  return app::DrawNoText(length, rect, format);
}

const app::AddedDouble added = {{"DrawTextW", e2e::Erase(&DrawTextDouble)}};

}  // namespace
