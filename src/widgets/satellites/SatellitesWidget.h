#pragma once

#include "gps/SatelliteInfo.h"
#include "widgets/ColorSetting.h"
#include "widgets/ScaledPicture.h"
#include "widgets/TextSetting.h"
#include "widgets/Widget.h"

namespace ferolin {

class SkyPlot;
struct SignalStrip;

/// The satellites in view: their places in the sky, the strengths of their signals, and read-outs of
/// the fix.
class SatellitesWidget : public Widget {
 public:
  explicit SatellitesWidget(WidgetOwner& owner);

  void CreateOwnButtons() override { CreateNavigationButtons(); }
  void Attach() override;
  void SaveSettings(IniStore& store) const override;
  void LoadSettings(const IniStore& store) override;

 private:
  void Paint(Canvas& canvas) override;

  static const ColorSetting<SatellitesWidget> COLORS[8];
  static const TextSetting<SatellitesWidget> TEXTS[1];

  COLORREF SignalColor(int snr) const;
  void DrawBackground(Canvas& canvas, const SkyPlot& sky);
  void DrawBar(Canvas& canvas, const SignalStrip& strip, int slot, const SatelliteInfo& satellite);
  void DrawRings(Canvas& canvas, const SkyPlot& sky);
  void DrawDot(Canvas& canvas, const SkyPlot& sky, const SatelliteInfo& satellite);
  void DrawLabel(Canvas& canvas, const SkyPlot& sky, const SatelliteInfo& satellite);

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
