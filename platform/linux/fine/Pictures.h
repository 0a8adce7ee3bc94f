// Pictures in twins.
#pragma once

#include <cairo.h>

#include "fine/Twin.h"

namespace handheld::fine {

/// Two corners of a part of a picture. Where right < left, or bottom < top, it is mirrored.
struct Part {
  double left;
  double top;
  double right;
  double bottom;
};

enum class Drawing {
  /// Replaces what was there.
  COPY,
  /// Replaces what was there by the inverse.
  INVERT,
  /// Lies over what was there.
  BLEND,
};

struct PictureLook {
  Drawing drawing = Drawing::COPY;
  /// Of the whole picture, 0 to 1; for BLEND.
  double alpha = 1;
  cairo_filter_t filter = CAIRO_FILTER_GOOD;
};

/// Draws `from`, in pixels of the source, into `to`, in logical pixels of the twin.
void DrawPicture(Twin& twin, const Part& to, cairo_surface_t* source, const Part& from,
                 const PictureLook& look);

}  // namespace handheld::fine
