// What buttons and keys ask for.
#pragma once

#include <windows.h>

namespace app {

enum class Command {
  NONE,
  PREVIOUS_VIEW,
  NEXT_VIEW,
  OPEN_SETTINGS,
  OPEN_RESET,
  OPEN_SMS,
  MIRROR,
  FLIP,
  TURN,
  INVERT_COLORS,
  TOGGLE_BUTTONS,
  TOGGLE_FULL_SCREEN,  ///< only in a window that another program shows
  LEAVE,               ///< quits a window that another program shows
  QUIT,
};

/// `code` is the engine's code of a button or swipe.
Command FindButtonCommand(LPARAM code);

/// `key` is the code of a key that is pressed while views are shown.
Command FindKeyCommand(WPARAM key);

}  // namespace app
