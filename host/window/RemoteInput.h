// What somebody does to the views from another device.
#pragma once

#include <windows.h>

#include <cstdint>

namespace host {

struct RemoteInput {
  enum class Kind { DOWN, MOVE, UP, DOUBLE_TAP, KEY, STEP_VIEW, FIT };

  Kind kind = Kind::KEY;
  /// Of a touch, in pixels of the picture.
  int x = 0;
  int y = 0;
  /// Code of a key.
  WPARAM key = 0;
  /// 1 is the next view, -1 the one before.
  int step = 0;
  /// Size in pixels and dots per inch that fit the other device's screen.
  int width = 0;
  int height = 0;
  int dpi = 0;
  /// Stream of the browser that it comes from; 0 when that is not told.
  std::uint64_t stream = 0;
};

}  // namespace host
