#include "widgets/satellites/CornerReadouts.h"

#include <ferolin.h>

#include "base/CodePage.h"
#include "render/Canvas.h"
#include "sensors/Sensor.h"
#include "widgets/WidgetOwner.h"
#include "widgets/satellites/SkyGeometry.h"

namespace ferolin {

namespace {

constexpr int MARGIN = 6;  // keeps values apart from satellites' numbers in a strip at the right

}  // namespace

/// Long names stand at the top: there the name, the widest line, lies next to the edge, where the
/// sky leaves the most room.
constexpr CornerReadouts::Readout CornerReadouts::READOUTS[] = {
    {FEROLIN_SENSOR_GPS_STATUS, false, false},
    {FEROLIN_SENSOR_SATELLITES_USED, true, false},
    {FEROLIN_SENSOR_HDOP, false, true},
    {FEROLIN_SENSOR_VDOP, true, true},
};

CornerReadouts::CornerReadouts(Canvas& canvas, const SkyGeometry& sky, HFONT font, COLORREF color)
    : canvas(canvas), sky(sky), font(font), color(color) {}

void CornerReadouts::Draw(const WidgetOwner& owner) const {
  for (const Readout& readout : READOUTS) {
    if (const Sensor* sensor = owner.GetSensor(readout.sensor)) {
      DrawReadout(readout, Widen(sensor->GetName()), Widen(sensor->GetValueText()));
    }
  }
}

/// The name, in two lines where one has no room, and the value below it.
void CornerReadouts::DrawReadout(const Readout& readout, const WideString& name,
                                 const WideString& value) const {
  const SIZE extent = Measure(name);
  const int room = sky.RoomBeside(readout.isBottom ? 2 * extent.cy : extent.cy) - MARGIN;
  const std::size_t blank =
      extent.cx > room ? name.rfind(static_cast<WCHAR>(' ')) : WideString::npos;
  const bool isBroken = blank != WideString::npos;
  int top = readout.isBottom ? sky.area.bottom - (isBroken ? 3 : 2) * extent.cy : sky.area.top;
  DrawLine(readout, name.substr(0, blank), top);
  top += extent.cy;
  if (isBroken) {
    DrawLine(readout, name.substr(blank + 1), top);
    top += extent.cy;
  }
  DrawLine(readout, value, top);
}

void CornerReadouts::DrawLine(const Readout& readout, const WideString& text, int top) const {
  const int left =
      readout.isRight ? sky.area.right - MARGIN - Measure(text).cx : sky.area.left + MARGIN;
  canvas.DrawText(font, text.c_str(), left, top, color);
}

SIZE CornerReadouts::Measure(const WideString& text) const {
  return canvas.MeasureText(font, text.c_str());
}

}  // namespace ferolin
