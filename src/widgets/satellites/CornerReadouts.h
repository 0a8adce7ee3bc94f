#pragma once

#include <windows.h>

#include "base/WideString.h"

namespace ferolin {

class Canvas;
class WidgetOwner;
class SkyGeometry;

/// Four sensors in the corners that the sky leaves free: whether there is a fix, from how many
/// satellites, and how precise its position and its altitude are.
class CornerReadouts {
 public:
  /// The font stays the caller's.
  CornerReadouts(Canvas& canvas, const SkyGeometry& sky, HFONT font, COLORREF color);

  void Draw(const WidgetOwner& owner) const;

 private:
  struct Readout {
    int sensor;
    bool isRight;
    bool isBottom;
  };
  static const Readout READOUTS[4];

  void DrawReadout(const Readout& readout, const WideString& name, const WideString& value) const;
  void DrawLine(const Readout& readout, const WideString& text, int top) const;
  SIZE Measure(const WideString& text) const;

  Canvas& canvas;
  const SkyGeometry& sky;
  HFONT font;
  COLORREF color;
};

}  // namespace ferolin
