// Whether bitmaps of logical pixels are drawn finely, and how much.
#pragma once

namespace handheld::fine {

/// Screen pixels of a logical pixel of 96 dpi; 0 when nothing is drawn finely.
double CurrentScale();

}  // namespace handheld::fine
