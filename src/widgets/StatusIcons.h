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

  /// Where the icons came to lie, in the frame. A missing reception icon has an empty rectangle at
  /// the left corner; a missing battery icon, or an unknown battery, an empty one that is as wide
  /// as the frame.
  struct Places {
    RECT gps;
    RECT battery;
    /// Where the space between the two ends.
    LONG gapRight;
  };

  /// Loads the icons that are not there yet from the pictures' folder below `moduleDir`.
  void Load(const WideString& moduleDir);

  Places Draw(Canvas& canvas, int satellites, Style style) const;

 private:
  static constexpr std::size_t COUNT = 6;

  Places DrawBattery(HDC dc, const RECT& frame, Style style) const;

  std::array<std::unique_ptr<Picture>, COUNT> gps;
  std::array<std::unique_ptr<Picture>, COUNT> battery;  ///< the last one: charging
};

/// Which of the six reception icons stands for that number of satellites: 0 for less than 3, 1 for
/// 3 and 4, to 5 for 11 and more.
std::size_t ReceptionLevel(int satellites);

/// Which of the five battery icons stands for that charge: 0 below 20 %, to 4 from 80 %. An unknown
/// charge (255) shows as full.
std::size_t BatteryLevel(BYTE percent);

}  // namespace ferolin
