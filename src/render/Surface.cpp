#include "render/Surface.h"

namespace ferolin {

void Surface::EnsureDC(HDC model) {
  if (dc == nullptr) {
    dc = CreateCompatibleDC(model);
  }
}

/// A bitmap cannot be deleted while it is selected, so the one that the context came with goes back
/// in first.
void Surface::SetBitmap(HBITMAP newBitmap) {
  if (bitmap != nullptr) {
    SelectObject(dc, previousBitmap);
    DeleteObject(bitmap);
  }
  bitmap = newBitmap;
  if (bitmap != nullptr) {
    previousBitmap = SelectObject(dc, bitmap);
  }
}

void Surface::SelectBitmap() const {
  SelectObject(dc, bitmap);
}

void Surface::Release() {
  SetBitmap(nullptr);
  previousBitmap = nullptr;
  if (dc != nullptr) {
    DeleteDC(dc);
    dc = nullptr;
  }
}

SIZE Surface::GetSize() const {
  BITMAP description = {};
  if (bitmap == nullptr || GetObjectW(bitmap, sizeof description, &description) == 0) {
    return {0, 0};
  }
  return {description.bmWidth, description.bmHeight};
}

}  // namespace ferolin
