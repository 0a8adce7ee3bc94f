#include "web/ViewFrames.h"

#include <utility>

namespace host {

bool ViewFrames::Look(HWND window) {
  const std::uint64_t now = window == nullptr ? 0 : handheld::WindowPixelsVersion(window);
  if (now == 0 || now == version) {
    return false;
  }
  handheld::Pixels next = handheld::WindowPixels(window);
  if (next.rows.empty()) {
    return false;
  }
  version = now;
  const bool isOther = frames.Take(std::move(next));
  const bool isFirst = !std::exchange(hasPicture, true);
  number += isOther ? 1 : 0;
  return isOther || isFirst;
}

}  // namespace host
