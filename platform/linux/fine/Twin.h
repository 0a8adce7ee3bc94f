// The finely drawn twin of a bitmap.
#pragma once

#include <cairo.h>
#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "fine/DotRing.h"

namespace handheld::fine {

struct CairoDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using SurfacePointer = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using ContextPointer = std::unique_ptr<cairo_t, CairoDeleter>;

/// What a bitmap of logical pixels shows, in pixels of the screen. Coordinates and sizes that are
/// whole numbers are logical pixels, cairo's are the screen's. Colours are 0x00RRGGBB. Guarded by
/// the lock of the context that the bitmap is selected into.
class Twin {
 public:
  /// Black; `width` x `height` logical pixels and what the screen may show beyond the last of them.
  /// `scale` is the number of screen pixels of a logical one.
  Twin(int width, int height, double scale);
  /// Draws into a surface at a scale of 1.
  explicit Twin(SurfacePointer target);

  /// False without memory: nothing else may be called.
  bool IsUsable() const;
  double GetScale() const { return scale; }
  cairo_surface_t* GetSurface() const { return surface.get(); }
  /// In pixels of the screen.
  int GetWidth() const { return pixelWidth; }
  int GetHeight() const { return pixelHeight; }
  /// Row of pixels, each 0xXXRRGGBB.
  std::uint32_t* GetRow(int y) const;

  /// Pixel of the screen at which a logical coordinate begins.
  int Snap(double coordinate) const;
  /// Pixels of the screen under logical ones. The bitmap's last column and row include what the
  /// screen shows beyond them.
  RECT PixelsOf(const RECT& rect) const;

  /// Limits all drawing that follows. At first everything can be drawn into.
  void SetClip(const RECT& rect);
  const RECT& GetClip() const { return clip; }
  void Fill(const RECT& rect, std::uint32_t rgb);
  /// A soft round dot in place of a single pixel. Pixels of a circle make a smooth one.
  void DrawPixel(POINT place, std::uint32_t rgb);
  /// A soft round dot.
  void DrawDot(POINT place, std::uint32_t rgb);
  /// For drawing with cairo, without a path and in that colour. Drawing goes on through this object
  /// afterwards.
  cairo_t* BeginShape(std::uint32_t rgb);

 private:
  /// Radius and width are logical pixels. A dot is a ring without a radius.
  void DrawRing(POINT middle, double radius, double halfWidth, std::uint32_t rgb);

  const int width;
  const int height;
  const double scale;
  const int pixelWidth;
  const int pixelHeight;
  SurfacePointer surface;
  ContextPointer context;
  /// In logical pixels and in those of the screen.
  RECT clip;
  RECT pixelClip;
  /// Of the surface, with the bytes from row to row.
  std::uint8_t* const pixels;
  const std::ptrdiff_t stride;
  DotRing ring;
};

}  // namespace handheld::fine
