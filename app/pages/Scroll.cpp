#include "pages/Scroll.h"

#include <algorithm>
#include <cstdlib>

namespace app {

namespace {

constexpr int SECOND_MS = 1000;
/// A finger that rests so long before it leaves flings nothing.
constexpr DWORD REST_MS = 100;
constexpr int SLOWEST = 40;
constexpr int FASTEST = 4000;
/// What is left of the speed after a step, in percent.
constexpr int KEPT_PERCENT = 88;

}  // namespace

void Scroll::SetFarthest(int pixels) {
  farthest = std::max(pixels, 0);
  MoveTo(offset);
}

void Scroll::MoveTo(int newOffset) {
  offset = std::clamp(newOffset, 0, farthest);
}

void Scroll::Press(int y) {
  isDragging = false;
  speed = 0;
  pressedY = y;
  lastY = y;
  lastMs = GetTickCount();
}

bool Scroll::Drag(int y, int threshold) {
  if (!isDragging && std::abs(y - pressedY) <= threshold) {
    return false;
  }
  isDragging = true;
  const DWORD now = GetTickCount();
  const int elapsedMs = static_cast<int>(std::max<DWORD>(now - lastMs, 1));
  speed = std::clamp((lastY - y) * SECOND_MS / elapsedMs, -FASTEST, FASTEST);
  MoveTo(offset + lastY - y);
  lastY = y;
  lastMs = now;
  return true;
}

void Scroll::Release() {
  if (!isDragging || GetTickCount() - lastMs > REST_MS) {
    speed = 0;
  }
  isDragging = false;
}

void Scroll::Step(int milliseconds) {
  MoveTo(offset + speed * milliseconds / SECOND_MS);
  speed = speed * KEPT_PERCENT / 100;
  if (std::abs(speed) < SLOWEST || offset == 0 || offset == farthest) {
    speed = 0;
  }
}

}  // namespace app
