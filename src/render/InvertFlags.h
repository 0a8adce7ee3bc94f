#pragma once

#include <cstdint>

#include "base/SharedWord.h"

namespace ferolin {

/// What is done to the finished picture before it is shown. Each flag is 0 at start; any other byte
/// is on. Process-wide, without an engine. Set on the host's thread, read by the redraw thread at
/// the next frame.
struct InvertFlags {
  SharedWord<std::uint8_t> vert = 0;    ///< flipped top to bottom
  SharedWord<std::uint8_t> horz = 0;    ///< flipped left to right
  SharedWord<std::uint8_t> color = 0;   ///< every colour inverted
  SharedWord<std::uint8_t> orient = 0;  ///< turned by 90 degrees clockwise
};

extern InvertFlags theInvertFlags;

}  // namespace ferolin
