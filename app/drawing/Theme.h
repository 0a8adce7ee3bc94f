// The colours of the pages.
#pragma once

#include "drawing/PixelBitmap.h"

namespace app {

struct Theme {
  Color background;  ///< between and behind the rows
  Color header;
  Color headerLine;
  Color row;
  Color pressedRow;
  Color text;
  Color faintText;  ///< captions, icons, arrows
  Color disabledText;
  Color accent;  ///< values, actions, switches that are on
  Color accentFill;
  Color warning;  ///< an action that waits for the second tap
  Color button;
  Color pressedButton;
  Color buttonBorder;
  Color knob;
  Color focus;
};

inline constexpr Theme DARK_THEME = {
    .background = 0x000000,
    .header = 0x0A0E12,
    .headerLine = 0x4A6078,
    .row = 0x141B21,
    .pressedRow = 0x24323E,
    .text = 0xF2F5F7,
    .faintText = 0x9DB0C0,
    .disabledText = 0x55626E,
    .accent = 0x2EE58C,
    .accentFill = 0x106B42,
    .warning = 0xFFB040,
    .button = 0x20303F,
    .pressedButton = 0x2F5069,
    .buttonBorder = 0x55708A,
    .knob = 0xF2F5F7,
    .focus = 0x4FB3FF,
};

inline constexpr Theme LIGHT_THEME = {
    .background = 0xD3DAE0,
    .header = 0xF4F7F9,
    .headerLine = 0x8296A8,
    .row = 0xFFFFFF,
    .pressedRow = 0xDCE8F2,
    .text = 0x10171D,
    .faintText = 0x4E6070,
    .disabledText = 0xA3AFB9,
    .accent = 0x087A48,
    .accentFill = 0x12A866,
    .warning = 0xB05A00,
    .button = 0xE6EDF3,
    .pressedButton = 0xBCD2E4,
    .buttonBorder = 0x8296A8,
    .knob = 0xFFFFFF,
    .focus = 0x0A6CC8,
};

/// Radius of the corners of fields and buttons, in units.
constexpr int CORNER_RADIUS = 7;

}  // namespace app
