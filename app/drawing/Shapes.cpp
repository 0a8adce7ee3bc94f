#include "drawing/Shapes.h"

#include <algorithm>
#include <cstdlib>

namespace app {

namespace {

constexpr int FULL = FINE;  // coverage of a pixel that lies wholly inside

/// Largest integer whose square is not above `square`.
int SquareRoot(std::uint32_t square) {
  std::uint32_t root = 0;
  for (std::uint32_t bit = 1U << 15; bit != 0; bit >>= 1) {
    const std::uint32_t tried = root | bit;
    if (tried * tried <= square) {
      root = tried;
    }
  }
  return static_cast<int>(root);
}

/// Length of a vector, at most 32767 each way.
int Length(int x, int y) {
  return SquareRoot(static_cast<std::uint32_t>(x * x) + static_cast<std::uint32_t>(y * y));
}

/// Coverage of the pixel whose centre lies that far from the middle of a round shape.
int CoverageAt(int fineDistance, int fineRadius) {
  return std::clamp(fineRadius - fineDistance + FINE / 2, 0, FULL);
}

/// Mixes two channels at a time: 8 bits and 4 of the weight fit into 16.
Color Mix(Color over, Color under, int weight) {
  constexpr Color RED_AND_BLUE = 0x00FF00FF;
  constexpr Color GREEN = 0x0000FF00;
  constexpr int WEIGHT_BITS = 4;
  const Color first = static_cast<Color>(weight);
  const Color rest = static_cast<Color>(FULL - weight);
  const Color redAndBlue =
      ((over & RED_AND_BLUE) * first + (under & RED_AND_BLUE) * rest) >> WEIGHT_BITS;
  const Color green = ((over & GREEN) * first + (under & GREEN) * rest) >> WEIGHT_BITS;
  return (redAndBlue & RED_AND_BLUE) | (green & GREEN);
}

}  // namespace

void Shapes::FillSpan(int y, int left, int right, Color color) {
  if (y < 0 || y >= bitmap.GetHeight()) {
    return;
  }
  const int from = std::max(left, 0);
  const int to = std::min(right, bitmap.GetWidth());
  if (from < to) {
    std::fill(bitmap.GetRow(y) + from, bitmap.GetRow(y) + to, color);
  }
}

void Shapes::BlendPixel(int x, int y, Color color, int coverage) {
  if (coverage <= 0 || x < 0 || x >= bitmap.GetWidth() || y < 0 || y >= bitmap.GetHeight()) {
    return;
  }
  Color& pixel = bitmap.GetRow(y)[x];
  pixel = Mix(color, pixel, coverage);
}

void Shapes::FillRect(const RECT& rect, Color color) {
  const int bottom = std::min<int>(rect.bottom, bitmap.GetHeight());
  for (int y = std::max<int>(rect.top, 0); y < bottom; ++y) {
    FillSpan(y, rect.left, rect.right, color);
  }
}

/// The rows of the corners are symmetric: what is computed for one corner serves all four.
void Shapes::FillRoundRect(const RECT& rect, int radius, Color color) {
  const int corner =
      std::min<int>(radius, std::min<int>(rect.right - rect.left, rect.bottom - rect.top) / 2);
  FillRect({rect.left, rect.top + corner, rect.right, rect.bottom - corner}, color);
  for (int row = 0; row < corner; ++row) {
    const int up = (corner - row) * FINE - FINE / 2;
    const int top = rect.top + row;
    const int bottom = rect.bottom - 1 - row;
    int inside = corner;
    for (int column = 0; column < corner; ++column) {
      const int across = (corner - column) * FINE - FINE / 2;
      const int coverage = CoverageAt(Length(across, up), corner * FINE);
      if (coverage == FULL) {
        inside = column;
        break;
      }
      BlendPixel(rect.left + column, top, color, coverage);
      BlendPixel(rect.right - 1 - column, top, color, coverage);
      BlendPixel(rect.left + column, bottom, color, coverage);
      BlendPixel(rect.right - 1 - column, bottom, color, coverage);
    }
    FillSpan(top, rect.left + inside, rect.right - inside, color);
    FillSpan(bottom, rect.left + inside, rect.right - inside, color);
  }
}

void Shapes::DrawFrame(const RECT& rect, int radius, int borderWidth, Color border, Color fill) {
  FillRoundRect(rect, radius, border);
  FillRoundRect({rect.left + borderWidth, rect.top + borderWidth, rect.right - borderWidth,
                 rect.bottom - borderWidth},
                std::max(radius - borderWidth, 0), fill);
}

void Shapes::DrawLines(std::span<const FinePoint> points, int fineWidth, Color color) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    DrawLine(points[i - 1], points[i], fineWidth / 2, color);
  }
}

/// Distances are taken along the line and across it, in a direction of length 256; behind the ends
/// they are those to the end.
void Shapes::DrawLine(FinePoint from, FinePoint to, int fineRadius, Color color) {
  constexpr int UNIT = 256;
  const int length = Length(to.x - from.x, to.y - from.y);
  // A dot has any direction.
  const int directionX = length == 0 ? UNIT : (to.x - from.x) * UNIT / length;
  const int directionY = length == 0 ? 0 : (to.y - from.y) * UNIT / length;
  const int reach = fineRadius + FINE;
  const int left = (std::min(from.x, to.x) - reach) / FINE;
  const int right = (std::max(from.x, to.x) + reach) / FINE;
  const int top = (std::min(from.y, to.y) - reach) / FINE;
  const int bottom = (std::max(from.y, to.y) + reach) / FINE;
  for (int y = top; y <= bottom; ++y) {
    for (int x = left; x <= right; ++x) {
      const int offsetX = x * FINE + FINE / 2 - from.x;
      const int offsetY = y * FINE + FINE / 2 - from.y;
      const int along = (offsetX * directionX + offsetY * directionY) / UNIT;
      const int across = std::abs(offsetX * directionY - offsetY * directionX) / UNIT;
      const int beyond = along < 0 ? -along : std::max(along - length, 0);
      if (across < reach && beyond < reach) {
        const int distance = beyond == 0 ? across : Length(across, beyond);
        BlendPixel(x, y, color, CoverageAt(distance, fineRadius));
      }
    }
  }
}

}  // namespace app
