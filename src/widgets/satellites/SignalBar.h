#pragma once

#include <windows.h>

namespace ferolin {

/// The strip along the edge of a view in which each satellite has a place for its number and a bar
/// as long as its signal is strong.
struct SignalStrip {
  /// Places of the strip in a frame of that size: it lies at the right of frames that are wider
  /// than high, with a row for each satellite, else at the bottom with columns.
  static SignalStrip Of(SIZE frame);

  RECT rect;
  bool hasRows;
};

/// The place of one satellite in the strip. Nothing of it leaves the strip.
struct SignalBar {
  /// `slot` counts from 0 to 11. 100 dB fill the strip; signals beyond 0 and 100 are cut.
  SignalBar(const SignalStrip& strip, int slot, int snr);

  /// Top left corner of the satellite's number: at the end of a row's label, centred below a
  /// column.
  POINT LabelCorner(SIZE text) const;

  RECT bar;     ///< empty without a signal
  RECT shadow;  ///< sticks out beside the bar; empty when the bar is too short for one

 private:
  RECT label;
  bool isRow;
};

}  // namespace ferolin
