#pragma once

#include "gps/SatelliteInfo.h"
#include "widgets/ColorSetting.h"
#include "widgets/ScaledPicture.h"
#include "widgets/TextSetting.h"
#include "widgets/Widget.h"

namespace ferolin {

class NumberPlaces;
class SkyGeometry;
struct SignalStrip;

/// The satellites in view: their places in the sky, the strengths of their signals, and read-outs
/// of the fix.
class SatellitesWidget : public Widget {
 public:
  explicit SatellitesWidget(WidgetOwner& owner);

  void CreateOwnButtons() override { CreateNavigationButtons(); }
  void Attach() override;
  void SaveSettings(IniStore& store) const override;
  void LoadSettings(const IniStore& store) override;

 private:
  static const ColorSetting<SatellitesWidget> COLORS[8];
  static const TextSetting<SatellitesWidget> TEXTS[1];

  void Paint(Canvas& canvas) override;
  COLORREF SignalColor(int snr) const;
  void DrawBackground(Canvas& canvas, const SkyGeometry& sky);
  void DrawSignals(Canvas& canvas, const SignalStrip& strip);
  void DrawBar(Canvas& canvas, const SignalStrip& strip, int slot, const SatelliteInfo& satellite);
  void DrawSky(Canvas& canvas, const SkyGeometry& sky);
  void DrawRings(Canvas& canvas, const SkyGeometry& sky);
  void DrawDot(Canvas& canvas, NumberPlaces& places, const SatelliteInfo& satellite);
  void DrawNumber(Canvas& canvas, NumberPlaces& places, const SatelliteInfo& satellite);

  COLORREF nameColor;
  COLORREF lowSignalColor;
  COLORREF midSignalColor;
  COLORREF highSignalColor;
  COLORREF borderColor;
  COLORREF shadowColor;
  COLORREF miscLineColor;
  TextStyle nameStyle;
  ScaledPicture background;
};

}  // namespace ferolin
