#include "widgets/path/PathPicture.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "render/FrameBitmap.h"

namespace ferolin {

PathPicture::~PathPicture() {
  if (pen != nullptr) {
    SelectObject(GetDC(), firstPen);
    DeleteObject(pen);
  }
  surface.Release();
}

bool PathPicture::Clear(HDC model, SIZE newSize, COLORREF background, COLORREF litColor) {
  if (!Exists() || size.cx != newSize.cx || size.cy != newSize.cy) {
    void* memory = nullptr;
    surface.EnsureDC(model);
    surface.SetBitmap(CreateFrameBitmap(model, newSize.cx, newSize.cy, &memory));
    if (!Exists()) {
      return false;
    }
    size = newSize;
    const LONG rowLength = (size.cx + 1) / 2 * 2;
    pixels = Pixels(static_cast<std::uint16_t*>(memory) + (size.cy - 1) * rowLength, rowLength);
  }
  const RECT whole = {0, 0, size.cx, size.cy};
  const HBRUSH brush = CreateSolidBrush(background);
  FillRect(GetDC(), &whole, brush);
  DeleteObject(brush);
  TakePen(litColor);
  FinishDrawing();
  std::uint16_t& sample = *pixels.At({0, 0});
  unlit = sample;
  SetPixel(GetDC(), 0, 0, litColor);
  pixels.SetLit(sample);
  sample = unlit;
  return true;
}

/// What was drawn is in the picture's memory for sure when a pixel has been asked for.
void PathPicture::FinishDrawing() const {
  GetPixel(GetDC(), 0, 0);
}

void PathPicture::Move(LONG right, LONG down) {
  FinishDrawing();
  const LONG width = size.cx - std::abs(right);
  const LONG height = size.cy - std::abs(down);
  if (width <= 0 || height <= 0) {
    return;
  }
  for (LONG count = 0; count < height; ++count) {
    // No row is written over before it has been moved itself.
    const LONG row = down > 0 ? height - 1 - count : count;
    std::memmove(pixels.At({std::max<LONG>(right, 0), row + std::max<LONG>(down, 0)}),
                 pixels.At({std::max<LONG>(-right, 0), row + std::max<LONG>(-down, 0)}),
                 static_cast<std::size_t>(width) * sizeof unlit);
  }
}

void PathPicture::ClearOutside(const RECT& part) {
  FinishDrawing();
  for (LONG y = 0; y < size.cy; ++y) {
    if (y >= part.top && y < part.bottom) {
      ClearColumns(0, part.left, y);
      ClearColumns(part.right, size.cx, y);
    } else {
      ClearColumns(0, size.cx, y);
    }
  }
}

void PathPicture::ClearColumns(LONG left, LONG right, LONG y) {
  std::fill(pixels.At({left, y}), pixels.At({right, y}), unlit);
}

void PathPicture::TakePen(COLORREF color) {
  const HPEN newPen = CreatePen(PS_SOLID, 1, color);
  const HGDIOBJ before = SelectObject(GetDC(), newPen);
  if (pen == nullptr) {
    firstPen = before;
  } else {
    DeleteObject(pen);
  }
  pen = newPen;
}

}  // namespace ferolin
