#include "fine/Twin.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace handheld::fine {

namespace {

/// A dot is a little wider than its pixel, so that dots that touch at their corners make a line.
constexpr double DOT_RADIUS = 0.6;

constexpr bool HasArea(const RECT& rect) {
  return rect.left < rect.right && rect.top < rect.bottom;
}

RECT Overlap(const RECT& a, const RECT& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

std::uint32_t MixChannels(std::uint32_t below, std::uint32_t above, std::uint32_t coverage) {
  std::uint32_t mixed = 0;
  for (const int shift : {0, 8, 16}) {
    const std::uint32_t sum =
        (above >> shift & 255) * coverage + (below >> shift & 255) * (255 - coverage);
    mixed |= (sum + 127) / 255 << shift;
  }
  return mixed;
}

void SetSource(cairo_t* context, std::uint32_t rgb) {
  constexpr double FULL = 255;
  cairo_set_source_rgb(context, (rgb >> 16 & 255) / FULL, (rgb >> 8 & 255) / FULL,
                       (rgb & 255) / FULL);
}

/// Largest number of pixels that the screen may have for `length` logical ones: a length is rounded
/// down when the screen's is divided by the scale.
int PixelLength(int length, double scale) {
  return static_cast<int>(std::ceil((length + 1) * scale)) - 1;
}

}  // namespace

Twin::Twin(int width, int height, double scale)
    : width(width),
      height(height),
      scale(scale),
      pixelWidth(PixelLength(width, scale)),
      pixelHeight(PixelLength(height, scale)),
      surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixelWidth, pixelHeight)),
      context(cairo_create(surface.get())),
      clip{0, 0, width, height},
      pixelClip{0, 0, pixelWidth, pixelHeight} {}

Twin::Twin(SurfacePointer target)
    : width(cairo_image_surface_get_width(target.get())),
      height(cairo_image_surface_get_height(target.get())),
      scale(1),
      pixelWidth(width),
      pixelHeight(height),
      surface(std::move(target)),
      context(cairo_create(surface.get())),
      clip{0, 0, width, height},
      pixelClip(clip) {}

bool Twin::IsUsable() const {
  return cairo_status(context.get()) == CAIRO_STATUS_SUCCESS;
}

std::uint32_t* Twin::GetRow(int y) const {
  return reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get()) +
                                          static_cast<std::ptrdiff_t>(y) *
                                              cairo_image_surface_get_stride(surface.get()));
}

int Twin::Snap(double coordinate) const {
  return static_cast<int>(std::lround(coordinate * scale));
}

RECT Twin::PixelsOf(const RECT& rect) const {
  return {Snap(rect.left), Snap(rect.top), rect.right == width ? pixelWidth : Snap(rect.right),
          rect.bottom == height ? pixelHeight : Snap(rect.bottom)};
}

void Twin::SetClip(const RECT& rect) {
  if (rect.left == clip.left && rect.top == clip.top && rect.right == clip.right &&
      rect.bottom == clip.bottom) {
    return;
  }
  clip = rect;
  pixelClip = PixelsOf(rect);
  cairo_reset_clip(context.get());
  cairo_rectangle(context.get(), pixelClip.left, pixelClip.top, pixelClip.right - pixelClip.left,
                  pixelClip.bottom - pixelClip.top);
  cairo_clip(context.get());
}

void Twin::Fill(const RECT& rect, std::uint32_t rgb) {
  ring = {};
  const RECT visible = Overlap(rect, clip);
  if (!HasArea(visible)) {
    return;
  }
  const RECT pixels = PixelsOf(visible);
  cairo_surface_flush(surface.get());
  for (LONG y = pixels.top; y < pixels.bottom; ++y) {
    std::fill(GetRow(y) + pixels.left, GetRow(y) + pixels.right, rgb);
  }
  cairo_surface_mark_dirty(surface.get());
}

void Twin::DrawPixel(POINT place, std::uint32_t rgb) {
  switch (ring.Take(place, rgb)) {
    case DotRing::Meaning::DOT:
      DrawDot(place, rgb);
      break;
    case DotRing::Meaning::RING:
      DrawRing(rgb);
      break;
    case DotRing::Meaning::PART_OF_RING:
      break;
  }
}

void Twin::DrawRing(std::uint32_t rgb) {
  constexpr double MIDDLE = 0.5;
  SetSource(context.get(), rgb);
  cairo_new_path(context.get());
  cairo_set_line_width(context.get(), scale);
  cairo_arc(context.get(), (ring.GetCentre().x + MIDDLE) * scale,
            (ring.GetCentre().y + MIDDLE) * scale, ring.GetRadius() * scale, 0,
            2 * std::numbers::pi);
  cairo_stroke(context.get());
}

void Twin::DrawDot(POINT place, std::uint32_t rgb) {
  if (place.x < clip.left || place.x >= clip.right || place.y < clip.top ||
      place.y >= clip.bottom) {
    return;
  }
  if (dot.empty()) {
    MakeDot();
  }
  const int left = static_cast<int>(std::lround((place.x + 0.5) * scale - dotSize / 2.0));
  const int top = static_cast<int>(std::lround((place.y + 0.5) * scale - dotSize / 2.0));
  const RECT pixels = Overlap({left, top, left + dotSize, top + dotSize}, pixelClip);
  cairo_surface_flush(surface.get());
  for (LONG y = pixels.top; y < pixels.bottom; ++y) {
    const std::uint8_t* coverage =
        dot.data() + static_cast<std::ptrdiff_t>(y - top) * dotSize - left;
    std::uint32_t* row = GetRow(y);
    for (LONG x = pixels.left; x < pixels.right; ++x) {
      row[x] = MixChannels(row[x], rgb, coverage[x]);
    }
  }
  cairo_surface_mark_dirty(surface.get());
}

cairo_t* Twin::BeginShape(std::uint32_t rgb) {
  ring = {};
  SetSource(context.get(), rgb);
  cairo_new_path(context.get());
  return context.get();
}

/// Its centre lies where that of a pixel does: in the middle of a screen pixel when the scale is an
/// odd number, between pixels when it is even.
void Twin::MakeDot() {
  constexpr double FULL = 255;
  const double radius = DOT_RADIUS * scale;
  const int parity = static_cast<int>(std::lround(scale)) % 2;
  dotSize = 2 * static_cast<int>(std::ceil(radius)) + parity;
  for (int y = 0; y < dotSize; ++y) {
    for (int x = 0; x < dotSize; ++x) {
      const double distance = std::hypot(x + 0.5 - dotSize / 2.0, y + 0.5 - dotSize / 2.0);
      dot.push_back(static_cast<std::uint8_t>(
          std::lround(std::clamp(radius + 0.5 - distance, 0.0, 1.0) * FULL)));
    }
  }
}

}  // namespace handheld::fine
