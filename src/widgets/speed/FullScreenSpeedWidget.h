#pragma once

#include "widgets/ColorSetting.h"
#include "widgets/SensorSearch.h"
#include "widgets/StatusIcons.h"
#include "widgets/Widget.h"

namespace ferolin {

/// The speed in figures as large as the frame allows, and the clock between the status icons above.
class FullScreenSpeedWidget : public Widget {
 public:
  explicit FullScreenSpeedWidget(WidgetOwner& owner);

  void CreateOwnButtons() override { CreateNavigationButtons(); }
  void Attach() override;
  void SaveSettings(IniStore& store) const override;
  void LoadSettings(const IniStore& store) override;

 private:
  static const ColorSetting<FullScreenSpeedWidget> COLORS[3];

  void Paint(Canvas& canvas) override;
  void FindSensors();
  void DrawSpeed(Canvas& canvas, const StatusIcons::Places& places);
  void DrawTime(Canvas& canvas, const StatusIcons::Places& places);

  COLORREF speedTextColor;
  COLORREF timeTextColor;
  int speedSensor = NO_SENSOR;
  StatusIcons icons;
  int timeSensor = NO_SENSOR;
};

}  // namespace ferolin
