#pragma once

#include <windows.h>

namespace ferolin {

/// The strip along the edge of a view that holds a number and a bar for each satellite. The bar's
/// length shows the signal's strength.
struct SignalStrip {
  /// Strip of a frame of that size: in landscape at the right, with a row for each satellite; else
  /// at the bottom, with columns.
  static SignalStrip Of(SIZE frame);

  RECT rect;
  bool hasRows;
};

/// Places of one satellite's number and bar, all inside the strip.
struct SignalBar {
  /// `slot` is 0 to 11. 100 dB fill the strip; signals are cut to 0 to 100 dB.
  SignalBar(const SignalStrip& strip, int slot, int snr);

  /// Top left corner of the satellite's number: right before a row's bar, or centred below a
  /// column. Where columns are narrower than three figures, numbers stand in two lines in turn.
  POINT LabelCorner(SIZE text) const;

  RECT bar;     ///< empty without a signal
  RECT shadow;  ///< drawn before the bar, which covers most of it; empty for a very short bar

 private:
  RECT label;
  bool isRow;
};

}  // namespace ferolin
