// Smooth shapes, computed with integers only, so that every home draws the same pixels.
#pragma once

#include <span>

#include "drawing/PixelBitmap.h"

namespace app {

/// Point in 1/16 of a pixel.
struct FinePoint {
  int x;
  int y;
};

constexpr int FINE = 16;

/// Draws into a bitmap; what lies outside of it is left out.
class Shapes {
 public:
  /// The bitmap outlives the shapes.
  explicit Shapes(PixelBitmap& bitmap) : bitmap(bitmap) {}

  void FillRect(const RECT& rect, Color color);

  /// `radius` of the corners in pixels, at most half of the shorter side.
  void FillRoundRect(const RECT& rect, int radius, Color color);

  /// A border of that many pixels inside `rect`, filled.
  void DrawFrame(const RECT& rect, int radius, int borderWidth, Color border, Color fill);

  /// Lines from point to point with round ends and joints; `fineWidth` in 1/16 of a pixel.
  void DrawLines(std::span<const FinePoint> points, int fineWidth, Color color);

 private:
  void FillSpan(int y, int left, int right, Color color);
  void BlendPixel(int x, int y, Color color, int coverage);
  void DrawLine(FinePoint from, FinePoint to, int fineRadius, Color color);

  PixelBitmap& bitmap;
};

}  // namespace app
