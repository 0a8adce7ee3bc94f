#pragma once

#include <optional>
#include <span>

#include "base/GrowingArray.h"
#include "render/DashedPen.h"
#include "track/TrackPoint.h"
#include "widgets/ColorSetting.h"
#include "widgets/TextSetting.h"
#include "widgets/Widget.h"
#include "widgets/chart/MinuteMarks.h"
#include "widgets/chart/SpeedColumns.h"

namespace ferolin {

class SpeedScale;

/// The speed of the newest track points against time, newest at the right. Lines mark the current
/// speed and the highest one in view. Buttons choose how many points share one column of pixels.
class SpeedChartWidget : public Widget {
 public:
  explicit SpeedChartWidget(WidgetOwner& owner);

  void CreateOwnButtons() override;
  void SaveSettings(IniStore& store) const override;
  void LoadSettings(const IniStore& store) override;
  void OnMouseUp(HWND window, POINT point) override;

  /// Track points that one column stands for: a power of two from 1 to 128.
  int GetZoom() const { return zoom; }

 private:
  /// Made with the first frame, in the colours of the settings.
  struct Pens {
    DashedPen axes;
    DashedPen closeMinutes;  ///< a quarter of the axes' colour over the background
    DashedPen currentSpeed;
    DashedPen maxSpeed;
  };

  static const ColorSetting<SpeedChartWidget> COLORS[8];
  static const TextSetting<SpeedChartWidget> TEXTS[2];

  void Paint(Canvas& canvas) override;
  void MakePens();
  bool Zoom(LPARAM code);
  std::span<const TrackPoint> VisiblePoints(int columnCount) const;
  void Collect(const RECT& plot, std::span<const TrackPoint> points);
  void DrawBox(Canvas& canvas, const RECT& plot);
  void DrawGrid(Canvas& canvas, const RECT& plot, const SpeedScale& scale);
  void DrawScale(Canvas& canvas, const RECT& plot, const SpeedScale& scale);
  void DrawTitles(Canvas& canvas, const RECT& plot);
  void DrawMarks(Canvas& canvas, const RECT& plot);
  void DrawChart(Canvas& canvas, const RECT& plot, const SpeedScale& scale);
  void DrawSpeeds(Canvas& canvas, const RECT& plot, const SpeedScale& scale, float current);
  void DrawSpeed(Canvas& canvas, const RECT& plot, float kmh, POINT place, COLORREF color);
  void DrawRimmed(Canvas& canvas, HFONT font, const WideString& text, POINT corner, COLORREF color);

  COLORREF borderColor;
  COLORREF chartColor;
  COLORREF currentSpeedLineColor;
  COLORREF maxSpeedLineColor;
  COLORREF smallTextColor;
  COLORREF bigTextColor;
  COLORREF axesColor;
  TextStyle smallStyle;
  TextStyle bigStyle;
  int zoom = 1;
  SpeedColumns columns;
  MinuteMarks marks;
  GrowingArray<POINT> line;
  std::optional<Pens> pens;
};

}  // namespace ferolin
