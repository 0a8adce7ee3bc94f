#include "fine/Twin.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/LargePages.h"

namespace handheld::fine {

namespace {

/// In logical pixels. A dot is a little wider than its pixel, so that dots that touch at their
/// corners make a line.
constexpr double DOT_RADIUS = 0.6;

constexpr bool HasArea(const RECT& rect) {
  return rect.left < rect.right && rect.top < rect.bottom;
}

RECT Overlap(const RECT& a, const RECT& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

/// `covered` is 0 to 1.
std::uint32_t MixChannels(std::uint32_t below, std::uint32_t above, double covered) {
  const auto coverage = static_cast<std::uint32_t>(covered * 255.99);
  std::uint32_t mixed = 0;
  for (const int shift : {0, 8, 16}) {
    const std::uint32_t sum =
        (above >> shift & 255) * coverage + (below >> shift & 255) * (255 - coverage);
    mixed |= (sum + 127) / 255 << shift;
  }
  return mixed;
}

LONG Within(double coordinate, LONG low, LONG high) {
  return static_cast<LONG>(std::clamp<double>(coordinate, low, high));
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
      pixelClip{0, 0, pixelWidth, pixelHeight},
      pixels(cairo_image_surface_get_data(surface.get())),
      stride(cairo_image_surface_get_stride(surface.get())) {
  PreferLargePages(pixels, static_cast<std::size_t>(pixelHeight * stride));
}

Twin::Twin(SurfacePointer target)
    : width(cairo_image_surface_get_width(target.get())),
      height(cairo_image_surface_get_height(target.get())),
      scale(1),
      pixelWidth(width),
      pixelHeight(height),
      surface(std::move(target)),
      context(cairo_create(surface.get())),
      clip{0, 0, width, height},
      pixelClip(clip),
      pixels(cairo_image_surface_get_data(surface.get())),
      stride(cairo_image_surface_get_stride(surface.get())) {}

bool Twin::IsUsable() const {
  return cairo_status(context.get()) == CAIRO_STATUS_SUCCESS;
}

std::uint32_t* Twin::GetRow(int y) const {
  return reinterpret_cast<std::uint32_t*>(pixels + y * stride);
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
  const RECT area = PixelsOf(visible);
  cairo_surface_flush(surface.get());
  for (LONG y = area.top; y < area.bottom; ++y) {
    std::uint32_t* row = GetRow(y);
    std::fill(row + area.left, row + area.right, rgb);
  }
  cairo_surface_mark_dirty(surface.get());
}

void Twin::DrawPixel(POINT place, std::uint32_t rgb) {
  switch (ring.Take(place, rgb)) {
    case DotRing::Meaning::DOT:
      DrawDot(place, rgb);
      break;
    case DotRing::Meaning::RING:
      DrawRing(ring.GetCentre(), ring.GetRadius(), 0.5, rgb);
      break;
    case DotRing::Meaning::PART_OF_RING:
      break;
  }
}

void Twin::DrawDot(POINT place, std::uint32_t rgb) {
  if (place.x >= clip.left && place.x < clip.right && place.y >= clip.top &&
      place.y < clip.bottom) {
    DrawRing(place, 0, DOT_RADIUS, rgb);
  }
}

/// In each row the pixels between the outer and the inner circle are mixed, left and right of the
/// middle; both circles lie half a pixel beyond the ring's edges.
void Twin::DrawRing(POINT middle, double radius, double halfWidth, std::uint32_t rgb) {
  const double x = (middle.x + 0.5) * scale;
  const double y = (middle.y + 0.5) * scale;
  const double reach = halfWidth * scale + 0.5;
  const double outer = radius * scale + reach;
  const double inner = std::max(radius * scale - reach, 0.0);
  const LONG bottom = Within(std::ceil(y + outer), pixelClip.top, pixelClip.bottom);
  cairo_surface_flush(surface.get());
  for (LONG row = Within(y - outer, pixelClip.top, pixelClip.bottom); row < bottom; ++row) {
    const double down = row + 0.5 - y;
    const double outerHalf = std::sqrt(std::max(outer * outer - down * down, 0.0));
    const double innerHalf = std::sqrt(std::max(inner * inner - down * down, 0.0));
    std::uint32_t* line = GetRow(row);
    LONG column = Within(x - outerHalf, pixelClip.left, pixelClip.right);
    const auto mixUpTo = [&](double right) {
      const LONG end = Within(std::ceil(right), pixelClip.left, pixelClip.right);
      for (; column < end; ++column) {
        const double across = column + 0.5 - x;
        const double distance = std::sqrt(across * across + down * down);
        const double coverage = std::clamp(reach - std::abs(distance - radius * scale), 0.0, 1.0);
        line[column] = MixChannels(line[column], rgb, coverage);
      }
    };
    mixUpTo(x - innerHalf);
    column = std::max(column, Within(x + innerHalf, pixelClip.left, pixelClip.right));
    mixUpTo(x + outerHalf);
  }
  cairo_surface_mark_dirty(surface.get());
}

cairo_t* Twin::BeginShape(std::uint32_t rgb) {
  ring = {};
  SetSource(context.get(), rgb);
  cairo_new_path(context.get());
  return context.get();
}

}  // namespace handheld::fine
