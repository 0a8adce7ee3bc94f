#include "Paper.h"

#include <cstdlib>

namespace drawing {

namespace {

constexpr std::uint16_t USED_BITS_16 = 0x7FFF;

bool Has16Bits(Paper::Kind kind) {
  return kind == Paper::BOTTOM_UP_16 || kind == Paper::TOP_DOWN_16;
}

bool IsTopDown(Paper::Kind kind) {
  return kind == Paper::TOP_DOWN_16 || kind == Paper::TOP_DOWN_32;
}

}  // namespace

Paper::Paper(Kind kind, int paperWidth, int paperHeight)
    : width(paperWidth),
      height(paperHeight),
      bitsPerPixel(Has16Bits(kind) ? 16 : 32),
      isTopDown(IsTopDown(kind)),
      dc(CreateCompatibleDC(nullptr)) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = isTopDown ? -height : height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
  bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap == nullptr)
    std::abort();
  oldBitmap = SelectObject(dc, bitmap);
}

Paper::~Paper() {
  SelectObject(dc, oldBitmap);
  DeleteObject(bitmap);
  DeleteDC(dc);
}

void Paper::Fill(COLORREF color) const {
  const HBRUSH brush = CreateSolidBrush(color);
  const RECT all = GetBounds();
  FillRect(dc, &all, brush);
  DeleteObject(brush);
}

void Paper::FillWithNoise(Random& random) const {
  const std::size_t words = GetRowBytes() * static_cast<std::size_t>(height) / 2;
  const std::uint16_t used = bitsPerPixel == 16 ? USED_BITS_16 : 0xFFFF;
  auto* const all = static_cast<std::uint16_t*>(bits);
  for (std::size_t i = 0; i < words; ++i)
    all[i] = static_cast<std::uint16_t>((random.Next() >> 7) & used);
}

void Paper::Premultiply(Random& random) const {
  auto* const bytes = static_cast<std::uint8_t*>(bits);
  const std::size_t size = GetRowBytes() * static_cast<std::size_t>(height);
  for (std::size_t pixel = 0; pixel < size; pixel += 4) {
    const int kind = random.In(0, 3);
    std::uint8_t& alpha = bytes[pixel + 3];
    if (kind < 2)
      alpha = kind == 0 ? 255 : 0;
    for (std::size_t channel = 0; channel < 3; ++channel)
      bytes[pixel + channel] = static_cast<std::uint8_t>(bytes[pixel + channel] * alpha >> 8);
  }
}

std::string Paper::GetPixels() const {
  const std::size_t used =
      static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel) / 8;
  std::string pixels;
  for (int y = 0; y < height; ++y) {
    const auto row = static_cast<std::size_t>(isTopDown ? y : height - 1 - y);
    pixels.append(static_cast<const char*>(bits) + row * GetRowBytes(), used);
  }
  return pixels;
}

/// In memory rows begin at multiples of 4 bytes.
std::size_t Paper::GetRowBytes() const {
  return static_cast<std::size_t>((width * bitsPerPixel + 31) / 32 * 4);
}

}  // namespace drawing
