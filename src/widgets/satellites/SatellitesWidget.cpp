#include "widgets/satellites/SatellitesWidget.h"

#include "base/CodePage.h"
#include "base/Cp1251.h"
#include "base/Format.h"
#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "render/Rect.h"
#include "sensors/LocalizedText.h"
#include "widgets/WidgetOwner.h"
#include "widgets/satellites/CornerReadouts.h"
#include "widgets/satellites/NumberPlaces.h"
#include "widgets/satellites/SignalBar.h"
#include "widgets/satellites/SkyGeometry.h"

namespace ferolin {

namespace {

constexpr const char* SECTION = "SattelitesWidget";
constexpr Cp1251Text COMMENT = u"Настройки виджета спутников";

constexpr int LAST_LOW_SNR = 20;
constexpr int FIRST_HIGH_SNR = 50;

/// A satellite that is known but not received is not shown.
bool IsReceived(const SatelliteInfo& satellite) {
  return satellite.prn != MISSING_VALUE && satellite.elevation != MISSING_VALUE &&
         satellite.azimuth != MISSING_VALUE && satellite.snr != MISSING_VALUE;
}

WideString NumberOf(const SatelliteInfo& satellite) {
  return Widen(Format("%i", satellite.prn));
}

/// The frame without the strip.
RECT SkyArea(const SignalStrip& strip) {
  return strip.hasRows ? RECT{0, 0, strip.rect.left, strip.rect.bottom}
                       : RECT{0, 0, strip.rect.right, strip.rect.top};
}

/// The largest rectangle with the picture's proportions, in the middle of the area.
RECT FittedRect(const RECT& area, SIZE picture) {
  SIZE size = {area.right - area.left, 0};
  size.cy = size.cx * picture.cy / picture.cx;
  if (size.cy > area.bottom - area.top) {
    size.cy = area.bottom - area.top;
    size.cx = size.cy * picture.cx / picture.cy;
  }
  const LONG left = (area.left + area.right - size.cx) / 2;
  const LONG top = (area.top + area.bottom - size.cy) / 2;
  return {left, top, left + size.cx, top + size.cy};
}

}  // namespace

constinit const ColorSetting<SatellitesWidget> SatellitesWidget::COLORS[] = {
    {"BackGroundColor", &SatellitesWidget::backgroundColor, 0x00C0C0C0},
    {"SattelitesNameColor", &SatellitesWidget::nameColor, 0x00000000},
    {"LowSignalColor", &SatellitesWidget::lowSignalColor, 0x000000FF},
    {"MidSignalColor", &SatellitesWidget::midSignalColor, 0x0000FFFF},
    {"HighSignalColor", &SatellitesWidget::highSignalColor, 0x0000C000},
    {"BorderColor", &SatellitesWidget::borderColor, 0x00202020},
    {"ShadowColor", &SatellitesWidget::shadowColor, 0x00404040},
    {"MiscLineColor", &SatellitesWidget::miscLineColor, 0x00606060},
};

constinit const TextSetting<SatellitesWidget> SatellitesWidget::TEXTS[] = {
    {"SattelitesNameFontName", "SattelitesNameFontSize", &SatellitesWidget::nameStyle,
     "Times New Roman", 12},
};

SatellitesWidget::SatellitesWidget(WidgetOwner& owner) : Widget(GetText(Word::SATELLITES), owner) {
  InitColors(COLORS, *this);
  InitTexts(TEXTS, *this);
}

void SatellitesWidget::LoadSettings(const IniStore& store) {
  LoadColors(COLORS, SECTION, store, *this);
  LoadTexts(TEXTS, SECTION, store, *this);
}

void SatellitesWidget::SaveSettings(IniStore& store) const {
  store.SetValue("Comment", COMMENT.Get(), SECTION);
  SaveColors(COLORS, SECTION, store, *this);
  SaveFaces(TEXTS, SECTION, store, *this);
  SaveSizes(TEXTS, SECTION, store, *this);
}

void SatellitesWidget::Attach() {
  if (!background.IsLoaded()) {
    background.Load(owner.GetModuleDir() + TEXT("\\Pics\\SatBackGround.png"));
  }
  Widget::Attach();
}

void SatellitesWidget::Paint(Canvas& canvas) {
  const RECT frame = canvas.GetFrameRect();
  const SignalStrip strip = SignalStrip::Of({frame.right, frame.bottom});
  const SkyGeometry sky(SkyArea(strip));
  DrawBackground(canvas, sky);
  DrawSignals(canvas, strip);
  DrawSky(canvas, sky);
  CornerReadouts(canvas, sky, nameStyle.GetFont(canvas), nameColor).Draw(owner);
}

COLORREF SatellitesWidget::SignalColor(int snr) const {
  if (snr >= FIRST_HIGH_SNR) {
    return highSignalColor;
  }
  return snr <= LAST_LOW_SNR ? lowSignalColor : midSignalColor;
}

void SatellitesWidget::DrawBackground(Canvas& canvas, const SkyGeometry& sky) {
  const SIZE size = background.GetSize();
  if (size.cx > 0 && size.cy > 0 && !IsEmpty(sky.area)) {
    background.Draw(canvas.GetDrawingDC(), FittedRect(sky.area, size), backgroundColor);
  }
}

void SatellitesWidget::DrawSignals(Canvas& canvas, const SignalStrip& strip) {
  int slot = 0;
  for (const SatelliteInfo& satellite : owner.GetFix().GetSatellites()) {
    DrawBar(canvas, strip, slot++, satellite);
  }
}

void SatellitesWidget::DrawBar(Canvas& canvas, const SignalStrip& strip, int slot,
                               const SatelliteInfo& satellite) {
  if (!IsReceived(satellite)) {
    return;
  }
  const SignalBar place(strip, slot, satellite.snr);
  const WideString number = NumberOf(satellite);
  const HFONT font = nameStyle.GetFont(canvas);
  const POINT corner = place.LabelCorner(canvas.MeasureText(font, number.c_str()));
  canvas.DrawText(font, number.c_str(), corner.x, corner.y, nameColor);
  if (!IsEmpty(place.shadow)) {
    canvas.DrawRectangle(shadowColor, 1, shadowColor, place.shadow);
  }
  if (!IsEmpty(place.bar)) {
    canvas.DrawRectangle(borderColor, 1, SignalColor(satellite.snr), place.bar);
  }
}

/// All dots are drawn before all numbers, so no dot hides a number.
void SatellitesWidget::DrawSky(Canvas& canvas, const SkyGeometry& sky) {
  DrawRings(canvas, sky);
  NumberPlaces places(sky);
  for (const SatelliteInfo& satellite : owner.GetFix().GetSatellites()) {
    DrawDot(canvas, places, satellite);
  }
  for (const SatelliteInfo& satellite : owner.GetFix().GetSatellites()) {
    DrawNumber(canvas, places, satellite);
  }
}

/// Rings at the horizon and at 30 and 60 degrees above it, and the four directions.
void SatellitesWidget::DrawRings(Canvas& canvas, const SkyGeometry& sky) {
  const int x = sky.centerX;
  const int y = sky.centerY;
  const int r = sky.radius;
  for (const int radius : {r, 2 * r / 3, r / 3}) {
    canvas.DrawCircleOutline(miscLineColor, x, y, radius);
  }
  canvas.DrawThinLine(miscLineColor, x - r, y, x + r, y);
  canvas.DrawThinLine(miscLineColor, x, y - r, x, y + r);
  const HFONT font = nameStyle.GetFont(canvas);
  canvas.DrawText(font, TEXT("N"), x - 5, y - r - 10, nameColor);
  canvas.DrawText(font, TEXT("S"), x - 5, y + r, nameColor);
  canvas.DrawText(font, TEXT("E"), x + r, y - 5, nameColor);
  canvas.DrawText(font, TEXT("W"), x - r - 10, y - 5, nameColor);
}

void SatellitesWidget::DrawDot(Canvas& canvas, NumberPlaces& places,
                               const SatelliteInfo& satellite) {
  if (IsReceived(satellite)) {
    const POINT dot = places.AddDot(satellite);
    canvas.DrawFilledCircle(borderColor, 1, SignalColor(satellite.snr), dot.x, dot.y,
                            SkyGeometry::DOT_RADIUS);
  }
}

void SatellitesWidget::DrawNumber(Canvas& canvas, NumberPlaces& places,
                                  const SatelliteInfo& satellite) {
  if (!IsReceived(satellite)) {
    return;
  }
  const WideString number = NumberOf(satellite);
  const HFONT font = nameStyle.GetFont(canvas);
  const POINT corner = places.AddNumber(satellite, canvas.MeasureText(font, number.c_str()));
  canvas.DrawText(font, number.c_str(), corner.x, corner.y, nameColor);
}

}  // namespace ferolin
