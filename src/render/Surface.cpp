#include "render/Surface.h"

namespace ferolin {

void Surface::EnsureDC(HDC model) {
  if (dc == nullptr) {
    dc = CreateCompatibleDC(model);
  }
}

/// A selected bitmap cannot be deleted, so the context gets back first what it came with.
void Surface::SetBitmap(HBITMAP newBitmap) {
  if (bitmap != nullptr) {
    SelectObject(dc, previousBitmap);
    DeleteObject(bitmap);
  }
  bitmap = newBitmap;
  if (bitmap != nullptr) {
    previousBitmap = SelectObject(dc, bitmap);
    resolution = GetDeviceCaps(dc, LOGPIXELSX);
  }
}

void Surface::Release() {
  SetBitmap(nullptr);
  previousBitmap = nullptr;
  if (dc != nullptr) {
    DeleteDC(dc);
    dc = nullptr;
  }
}

/// Without a bitmap the description stays all zero.
SIZE Surface::GetSize() const {
  BITMAP description = {};
  if (bitmap != nullptr) {
    GetObjectW(bitmap, sizeof description, &description);
  }
  return {description.bmWidth, description.bmHeight};
}

bool Surface::FitsScreen() const {
  return GetDeviceCaps(dc, LOGPIXELSX) == resolution;
}

}  // namespace ferolin
