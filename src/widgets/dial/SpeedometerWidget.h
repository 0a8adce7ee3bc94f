#pragma once

#include <memory>

#include "widgets/ColorSetting.h"
#include "widgets/ScaledPicture.h"
#include "widgets/StatusIcons.h"
#include "widgets/TextSetting.h"
#include "widgets/Widget.h"
#include "widgets/dial/DialGeometry.h"
#include "widgets/dial/SpeedometerSensors.h"

namespace ferolin {

/// A dial with a needle for the speed and marks for its average and maximum. Speed, distance and
/// clock are texts on it; times of accelerations stand at its rim, times of the fastest distances
/// below it. Frames with room for it have a compass.
class SpeedometerWidget : public Widget {
 public:
  explicit SpeedometerWidget(WidgetOwner& owner);

  void CreateOwnButtons() override { CreateNavigationButtons(); }
  void Attach() override;
  void SaveSettings(IniStore& store) const override;
  void LoadSettings(const IniStore& store) override;

 private:
  /// Columns of the fastest times.
  struct Columns {
    int left;
    int width;
    int top;
  };

  static const ColorSetting<SpeedometerWidget> COLORS[11];
  static const TextSetting<SpeedometerWidget> TEXTS[5];

  bool CanPaint() const override { return dialFace.IsLoaded(); }
  void Paint(Canvas& canvas) override;
  void LoadIcons();
  void DrawLandscape(Canvas& canvas, const DialGeometry& dial);
  void DrawPortrait(Canvas& canvas, const DialGeometry& dial);
  void DrawNeedle(Canvas& canvas, const DialGeometry& dial);
  void DrawMark(Canvas& canvas, const DialGeometry& dial, int sensor, COLORREF color);
  int DrawSpeed(Canvas& canvas, const DialGeometry& dial, double rise);
  void DrawOdometer(Canvas& canvas, const DialGeometry& dial, int top);
  void DrawClock(Canvas& canvas, const DialGeometry& dial, int line, double rise);
  void DrawStatusIcons(Canvas& canvas);
  void DrawAcceleration(Canvas& canvas, const DialGeometry& dial);
  void DrawAccelerationTime(Canvas& canvas, const DialGeometry& dial, double target,
                            double seconds);
  void DrawFastest(Canvas& canvas, HFONT font, const Columns& columns);
  void DrawFastestTime(Canvas& canvas, HFONT font, int sensor, const RECT& column);
  void DrawCompass(Canvas& canvas, const DialGeometry& dial);
  void DrawCentered(Canvas& canvas, HFONT font, const WideString& text, int centerX, int top,
                    COLORREF color);

  COLORREF speedArrowColor;
  COLORREF speedTextColor;
  COLORREF maxSpeedMarkColor;
  COLORREF averageSpeedMarkColor;
  COLORREF odometerTextColor;
  COLORREF accelerationTextColor;
  COLORREF fastestColor;
  COLORREF northNeedleColor;
  COLORREF southNeedleColor;
  COLORREF clockTextColor;
  ScaledPicture dialFace;
  TextStyle accelerationStyle;
  TextStyle fastestStyle;
  TextStyle odometerStyle;
  TextStyle speedStyle;
  TextStyle clockStyle;
  SpeedometerSensors sensors;
  StatusIcons icons;
  std::unique_ptr<Picture> compassPicture;
};

}  // namespace ferolin
