#pragma once

#include <windows.h>

#include <array>
#include <memory>

#include "base/WideString.h"
#include "render/Picture.h"

namespace ferolin {

class Canvas;

/// The icons in the upper corners of a view: reception on the left, battery on the right.
class StatusIcons {
 public:
  enum class Style {
    OPAQUE_ICONS,  ///< alpha is ignored
    BLENDED_ICONS
  };

  /// Places of the icons in the frame.
  struct Places {
    RECT gps;       ///< empty, at the left corner, without a reception icon
    RECT battery;   ///< empty, as wide as the frame, without a battery icon or a known battery
    LONG gapRight;  ///< right end of the space between the icons
  };

  /// Loads the icons that are still missing from the folder Pics below `moduleDir`.
  void Load(const WideString& moduleDir);

  Places Draw(Canvas& canvas, int satellites, Style style) const;

 private:
  static constexpr std::size_t COUNT = 6;

  Places DrawBattery(HDC dc, const RECT& frame, Style style) const;

  std::array<std::unique_ptr<Picture>, COUNT> gps;
  std::array<std::unique_ptr<Picture>, COUNT> battery;  ///< the last one: charging
};

/// Index of the reception icon for that number of satellites: 0 for fewer than 3, 1 for 3 and 4,
/// and so on to 5 for 11 and more.
std::size_t ReceptionLevel(int satellites);

/// Index of the battery icon for that charge: 0 below 20 %, and so on to 4 from 80 %. An unknown
/// charge (255) shows as full.
std::size_t BatteryLevel(BYTE percent);

}  // namespace ferolin
