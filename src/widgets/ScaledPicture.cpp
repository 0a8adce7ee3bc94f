#include "widgets/ScaledPicture.h"

#include "render/FrameBitmap.h"
#include "render/SolidFill.h"

namespace ferolin {

void ScaledPicture::Load(const WideString& path) {
  picture = LoadPicture(path);
  scaled.Release();
}

SIZE ScaledPicture::GetSize() const {
  return picture != nullptr ? picture->GetSize() : SIZE{0, 0};
}

/// Without memory for the scaled copy the picture itself is blended.
void ScaledPicture::Draw(HDC dc, const RECT& rect, COLORREF background) {
  if (picture == nullptr) {
    return;
  }
  const SIZE size = {rect.right - rect.left, rect.bottom - rect.top};
  const SIZE old = scaled.GetSize();
  if (old.cx != size.cx || old.cy != size.cy || scaledBackground != background ||
      !scaled.FitsScreen()) {
    Scale(dc, size, background);
  }
  if (scaled.HasBitmap()) {
    BitBlt(dc, rect.left, rect.top, size.cx, size.cy, scaled.GetDC(), 0, 0, SRCCOPY);
  } else {
    picture->DrawBlended(dc, rect, OPAQUE_ALPHA);
  }
}

void ScaledPicture::Scale(HDC dc, SIZE size, COLORREF background) {
  void* bits = nullptr;
  scaled.EnsureDC(dc);
  scaled.SetBitmap(CreateFrameBitmap(dc, size.cx, size.cy, &bits));
  scaledBackground = background;
  const RECT whole = {0, 0, size.cx, size.cy};
  FillSolid(scaled.GetDC(), whole, background);
  picture->DrawBlended(scaled.GetDC(), whole, OPAQUE_ALPHA);
}

}  // namespace ferolin
