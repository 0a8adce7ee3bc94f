#include "widgets/speed/FullScreenSpeedWidget.h"

#include "base/CodePage.h"
#include "base/Cp1251.h"
#include "base/Format.h"
#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "sensors/Sensor.h"
#include "widgets/FittedText.h"
#include "widgets/WidgetOwner.h"

namespace ferolin {

namespace {

constexpr const char* SECTION = "FullScreenSpeedWidget";
constexpr Cp1251Text COMMENT = u"Настройки виджета полноэкранной скорости";

constexpr WideStringView FACE = TEXT("LCD");
constexpr int LANDSCAPE_SPEED_SIZE = 170;
constexpr int PORTRAIT_SPEED_SIZE = 140;
constexpr int TIME_SIZE = 70;

}  // namespace

constinit const ColorSetting<FullScreenSpeedWidget> FullScreenSpeedWidget::COLORS[] = {
    {"BackGroundColor", &FullScreenSpeedWidget::backgroundColor, 0x00000000},
    {"SpeedTextColor", &FullScreenSpeedWidget::speedTextColor, 0x00FFFFFF},
    {"TimeTextColor", &FullScreenSpeedWidget::timeTextColor, 0x0080FF00},
};

FullScreenSpeedWidget::FullScreenSpeedWidget(WidgetOwner& owner)
    : Widget(GetText(Word::SPEED), owner) {
  InitColors(COLORS, *this);
}

void FullScreenSpeedWidget::LoadSettings(const IniStore& store) {
  LoadColors(COLORS, SECTION, store, *this);
}

void FullScreenSpeedWidget::SaveSettings(IniStore& store) const {
  store.SetValue("Comment", COMMENT.Get(), SECTION);
  SaveColors(COLORS, SECTION, store, *this);
}

void FullScreenSpeedWidget::Attach() {
  if (speedSensor == NO_SENSOR || timeSensor == NO_SENSOR) {
    FindSensors();
  }
  icons.Load(owner.GetModuleDir());
  Widget::Attach();
}

/// The last sensor with such a name is shown.
void FullScreenSpeedWidget::FindSensors() {
  for (int index = 0; index < owner.GetSensorCount(); ++index) {
    const Sensor& sensor = *owner.GetSensor(index);
    if (IsNamed(sensor, Word::SPEED)) {
      speedSensor = index;
    } else if (IsNamed(sensor, Word::CURRENT_TIME)) {
      timeSensor = index;
    }
  }
}

void FullScreenSpeedWidget::Paint(Canvas& canvas) {
  const StatusIcons::Places places =
      icons.Draw(canvas, owner.GetFix().GetSatellitesUsed(), StatusIcons::Style::OPAQUE_ICONS);
  if (speedSensor != NO_SENSOR) {
    DrawSpeed(canvas, places);
    if (timeSensor != NO_SENSOR) {
      DrawTime(canvas, places);
    }
  }
}

void FullScreenSpeedWidget::DrawSpeed(Canvas& canvas, const StatusIcons::Places& places) {
  const RECT frame = canvas.GetFrameRect();
  const int largest = frame.right > frame.bottom ? LANDSCAPE_SPEED_SIZE : PORTRAIT_SPEED_SIZE;
  const FittedText speed(canvas, FACE, largest,
                         Widen(Format("%0.0f", GetSensorNumber(speedSensor))),
                         {frame.right, frame.bottom - places.gps.bottom});
  const SIZE extent = speed.GetExtent();
  speed.Draw(frame.right - extent.cx, (places.gps.bottom - extent.cy + frame.bottom) / 2,
             speedTextColor);
}

/// The clock is centred on half of the reception icon's width, which is half of the height of a
/// square icon.
void FullScreenSpeedWidget::DrawTime(Canvas& canvas, const StatusIcons::Places& places) {
  const FittedText time(canvas, FACE, TIME_SIZE, Widen(GetSensorText(timeSensor)),
                        {places.gapRight - places.gps.right, places.gps.bottom});
  const SIZE extent = time.GetExtent();
  time.Draw((places.gapRight - extent.cx + places.gps.right) / 2,
            (places.gps.right - extent.cy) / 2, timeTextColor);
}

}  // namespace ferolin
