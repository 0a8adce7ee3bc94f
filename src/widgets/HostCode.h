#pragma once

#include <windows.h>

namespace ferolin {

/// What the host is told when a button is tapped. The arrows' codes are also those of swipes; the
/// last four are also acted on by the views that have these buttons.
enum HostCode : LPARAM {
  PREVIOUS_VIEW = 1,
  NEXT_VIEW = 2,
  RESET_ALL = 3,
  SEND_SMS = 4,
  OPTIONS = 5,
  CLOSE = 6,
  FLIP_HORIZONTALLY = 7,
  ROTATE_SCREEN = 8,
  ZOOM_IN = 9,
  ZOOM_OUT = 10,
  CENTER_POSITION = 11,
  ZOOM_AUTOMATICALLY = 12,
};

}  // namespace ferolin
