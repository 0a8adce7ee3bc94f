#include "web/ViewFrames.h"

#include <utility>

#include "outputs/PngWriter.h"

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
  pixels = std::move(next);
  png.clear();
  hasPicture = true;
  ++number;
  return true;
}

const std::string& ViewFrames::GetPng() {
  if (png.empty() && number > 0) {
    png = EncodePng(pixels);
  }
  return png;
}

}  // namespace host
