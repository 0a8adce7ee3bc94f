// Pixel memory and its two formats.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace handheld::gdi {

enum class PixelFormat {
  /// 16 bits: 0RRRRRGGGGGBBBBB.
  RGB555,
  /// 32 bits: 0xAARRGGBB; the high byte is alpha for blending and unused otherwise.
  ARGB8888,
};

constexpr int BytesPerPixel(PixelFormat format) {
  return format == PixelFormat::RGB555 ? 2 : 4;
}

/// Bytes of a row; rows begin at multiples of 4 bytes.
constexpr int RowBytes(int width, PixelFormat format) {
  return (width * BytesPerPixel(format) + 3) & ~3;
}

/// Each 5 bits stretched to 8: 0 and 31 become 0 and 255. The upper three bits of a value are also
/// its lowest, for all three values at once.
constexpr std::uint32_t ArgbFrom555(std::uint32_t pixel) {
  const std::uint32_t upper =
      ((pixel & 0x7C00) << 9) | ((pixel & 0x03E0) << 6) | ((pixel & 0x001F) << 3);
  return upper | ((upper >> 5) & 0x00070707);
}

constexpr std::uint16_t Rgb555FromArgb(std::uint32_t argb) {
  return static_cast<std::uint16_t>(((argb >> 9) & 0x7C00) | ((argb >> 6) & 0x03E0) |
                                    ((argb >> 3) & 0x001F));
}

/// 0x00RRGGBB of a program's colour. A high byte with its lowest bit set means that the low word is
/// an index into the standard palette; unknown indices are black.
std::uint32_t ArgbFromColor(COLORREF color);

constexpr RECT Intersect(const RECT& a, const RECT& b) {
  return {a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
          a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom};
}

constexpr bool IsEmpty(const RECT& rect) {
  return rect.left >= rect.right || rect.top >= rect.bottom;
}

/// A view of pixels; does not own them. Row 0 is the picture's top row, wherever it lies in memory.
struct Raster {
  std::uint8_t* top = nullptr;
  /// Bytes from a row to the one below it; negative when the memory runs from the bottom up.
  std::ptrdiff_t pitch = 0;
  int width = 0;
  int height = 0;
  PixelFormat format = PixelFormat::ARGB8888;

  RECT GetBounds() const { return {0, 0, width, height}; }

  template <typename Pixel>
  Pixel* GetRow(int y) const {
    return reinterpret_cast<Pixel*>(top + y * pitch);
  }

  /// Pixel value of a colour; bits that the format lacks are cut off.
  std::uint32_t PixelFrom(COLORREF color) const;

  /// (x, y) must lie inside.
  COLORREF GetColor(int x, int y) const;
  void Set(int x, int y, std::uint32_t pixel) const;

  /// Fills the rectangle, which must lie inside.
  void Fill(const RECT& rect, std::uint32_t pixel) const;
};

/// A raster and its clip, which always lies inside the raster.
struct Target {
  Raster raster;
  RECT clip = {};

  bool Contains(LONG x, LONG y) const {
    return x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
  }

  /// Clipped fill.
  void Fill(const RECT& rect, std::uint32_t pixel) const {
    const RECT visible = Intersect(rect, clip);
    if (!IsEmpty(visible)) {
      raster.Fill(visible, pixel);
    }
  }
};

}  // namespace handheld::gdi
