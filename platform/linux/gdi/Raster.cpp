#include "gdi/Raster.h"

#include <pixman.h>

#include <algorithm>
#include <array>

namespace handheld::gdi {

namespace {

/// The 20 standard colours, as 0x00RRGGBB.
constexpr std::array<std::uint32_t, 20> STANDARD_PALETTE = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080,
    0xC0C0C0, 0xC0DCC0, 0xA6CAF0, 0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000,
    0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};

constexpr COLORREF PALETTE_INDEX = 0x01000000;
/// Refers to the colour table of a bitmap; no bitmap here has one.
constexpr COLORREF TABLE_INDEX = 0x10FF0000;

constexpr int FEW_COLUMNS = 16;  // Below this pixman is not worth the call.

template <typename Pixel>
void FillColumns(const Raster& raster, const RECT& rect, Pixel pixel) {
  auto* row = reinterpret_cast<std::uint8_t*>(raster.GetRow<Pixel>(rect.top));
  for (LONG y = rect.top; y < rect.bottom; ++y, row += raster.pitch) {
    for (LONG x = rect.left; x < rect.right; ++x) {
      reinterpret_cast<Pixel*>(row)[x] = pixel;
    }
  }
}

}  // namespace

std::uint32_t ArgbFromColor(COLORREF color) {
  const std::uint32_t index = color & 0xFFFF;
  if ((color & 0xFFFF0000) == TABLE_INDEX) {
    return 0;
  }
  if ((color & PALETTE_INDEX) != 0) {
    return index < STANDARD_PALETTE.size() ? STANDARD_PALETTE[index] : 0;
  }
  return (GetRValue(color) << 16) | (GetGValue(color) << 8) | GetBValue(color);
}

std::uint32_t Raster::PixelFrom(COLORREF color) const {
  const std::uint32_t argb = ArgbFromColor(color);
  return format == PixelFormat::RGB555 ? Rgb555FromArgb(argb) : argb;
}

COLORREF Raster::GetColor(int x, int y) const {
  const std::uint32_t argb = format == PixelFormat::RGB555
                                 ? ArgbFrom555(GetRow<const std::uint16_t>(y)[x])
                                 : GetRow<const std::uint32_t>(y)[x];
  return RGB(static_cast<BYTE>(argb >> 16), static_cast<BYTE>(argb >> 8), static_cast<BYTE>(argb));
}

void Raster::Set(int x, int y, std::uint32_t pixel) const {
  if (format == PixelFormat::RGB555) {
    GetRow<std::uint16_t>(y)[x] = static_cast<std::uint16_t>(pixel);
  } else {
    GetRow<std::uint32_t>(y)[x] = pixel;
  }
}

void Raster::Fill(const RECT& rect, std::uint32_t pixel) const {
  if (rect.right - rect.left <= FEW_COLUMNS) {
    if (format == PixelFormat::RGB555) {
      FillColumns(*this, rect, static_cast<std::uint16_t>(pixel));
    } else {
      FillColumns(*this, rect, pixel);
    }
    return;
  }
  // pixman wants rows that ascend in memory. A fill may take rows in any order, so a bottom-up
  // raster is filled from the row that comes first in memory.
  const int first = pitch < 0 ? rect.bottom - 1 : rect.top;
  const int bytes = BytesPerPixel(format);
  std::uint8_t* start = top + first * pitch + rect.left * bytes;
  const int rowBytes = static_cast<int>(pitch < 0 ? -pitch : pitch);
  constexpr std::uintptr_t WORD_MASK = ~std::uintptr_t{3};
  auto* aligned =
      reinterpret_cast<std::uint32_t*>(reinterpret_cast<std::uintptr_t>(start) & WORD_MASK);
  const int x = static_cast<int>(start - reinterpret_cast<std::uint8_t*>(aligned)) / bytes;
  pixman_fill(aligned, rowBytes / 4, bytes * 8, x, 0, rect.right - rect.left,
              rect.bottom - rect.top, pixel);
}

}  // namespace handheld::gdi
