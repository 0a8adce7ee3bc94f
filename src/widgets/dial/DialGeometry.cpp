#include "widgets/dial/DialGeometry.h"

#include <algorithm>
#include <cmath>

namespace ferolin {

namespace {

constexpr float START_ANGLE = 3.4470246F;  // 197.5 degrees
constexpr float END_ANGLE = -0.30543256F;  // -17.5 degrees
constexpr float SCALE_MINIMUM = 0.0F;
constexpr float SCALE_MAXIMUM = 220.0F;

constexpr int LANDSCAPE_TOP = 15;
constexpr int LANDSCAPE_MARGIN = 10;
constexpr int PORTRAIT_TOP = 25;

// From the centre down to the end of the face, for a radius.
constexpr int FACE_DEPTH = 11;
constexpr int FACE_RADIUS = 16;

}  // namespace

DialGeometry::DialGeometry(const RECT& rect)
    : rect(rect),
      centerX((rect.left + rect.right) / 2),
      centerY(rect.top + (rect.right - rect.left) / 2),
      radius((rect.right - rect.left) / 2),
      faceBottom(centerY + radius * FACE_DEPTH / FACE_RADIUS) {}

bool DialGeometry::IsOnScale(double kmh) {
  return kmh >= static_cast<double>(SCALE_MINIMUM) && kmh <= static_cast<double>(SCALE_MAXIMUM);
}

double DialGeometry::AngleOf(double kmh) {
  constexpr double START = START_ANGLE;
  constexpr double SWEEP = END_ANGLE - START;
  constexpr double SCALE = SCALE_MAXIMUM - SCALE_MINIMUM;
  return START + SWEEP * kmh / SCALE;
}

POINT DialGeometry::PointAt(double angle, double distance) const {
  return {static_cast<LONG>(centerX + distance * std::cos(angle)),
          static_cast<LONG>(centerY - distance * std::sin(angle))};
}

RECT DialRect(SIZE frame, SIZE picture) {
  const LONG width = std::max<LONG>(picture.cx, 1);
  const LONG height = std::max<LONG>(picture.cy, 1);
  if (frame.cx >= frame.cy) {
    const LONG bottom = frame.cy - LANDSCAPE_MARGIN;
    return {0, LANDSCAPE_TOP, (bottom - LANDSCAPE_TOP) * width / height, bottom};
  }
  return {0, PORTRAIT_TOP, frame.cx, PORTRAIT_TOP + frame.cx * height / width};
}

}  // namespace ferolin
