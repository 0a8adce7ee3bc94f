#include "widgets/dial/SpeedometerWidget.h"

#include <algorithm>
#include <cmath>

#include "base/CodePage.h"
#include "base/Cp1251.h"
#include "base/Format.h"
#include "base/Saturate.h"
#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "sensors/Sensor.h"
#include "widgets/WidgetOwner.h"

namespace ferolin {

namespace {

constexpr const char* SECTION = "SpeedometerWidget";
constexpr Cp1251Text COMMENT = u"Настройки виджета спидометра";

constexpr double PI = 3.141592F;
constexpr double DEGREES_PER_HALF_TURN = 180;

constexpr int NEEDLE_WIDTH = 3;
constexpr int MARK_WIDTH = 5;
constexpr double MARK_START = 0.4;  // part of the dial's width, from the centre

// From the dial's centre up to the top of a text, in heights of the text.
constexpr double LANDSCAPE_SPEED_RISE = 1.1;
constexpr double PORTRAIT_SPEED_RISE = 1.2;
constexpr double CLOCK_RISE = 1.1;
constexpr int TEXT_GAP = 4;

constexpr double SLOWEST_TARGET = 50;  // km/h
constexpr double FASTEST_TARGET = 180;
constexpr int RIM_GAP = 20;
constexpr double RIM_SHIFT = 0.1;  // radians from the target's place on the rim to the text
constexpr int TEXT_TURN = 268;     // degrees from the target's direction to the text's

constexpr int FASTEST_RISE = 25;  // from the dial's lower edge up to the texts
constexpr int COLUMN_GAP = 4;
constexpr int BUTTONS_HEIGHT = 55;       // of the line at the frame's lower edge, with a gap
constexpr int FASTEST_LINES = 3;         // lines of text that distance, bracket and time take
constexpr int FASTEST_TIMES_WIDTH = 10;  // sizes of a font in which three times have room

constexpr int COMPASS_SIZE = 65;
constexpr int COMPASS_CENTER = 32;
constexpr int COMPASS_NEEDLE = 27;

int CutToInt(double value) {
  return Saturated<int>(value);
}

int Nearest(double value) {
  return CutToInt(value + 0.5);
}

}  // namespace

constinit const ColorSetting<SpeedometerWidget> SpeedometerWidget::COLORS[] = {
    {"BackGroundColor", &SpeedometerWidget::backgroundColor, 0x00000000},
    {"SpeedArrowColor", &SpeedometerWidget::speedArrowColor, 0x000000FF},
    {"SpeedTextColor", &SpeedometerWidget::speedTextColor, 0x00FFFF00},
    {"MaxSpeedArrowColor", &SpeedometerWidget::maxSpeedMarkColor, 0x000000FF},
    {"AvgSpeedArrowColor", &SpeedometerWidget::averageSpeedMarkColor, 0x0000FF00},
    {"OdomerTextColor", &SpeedometerWidget::odometerTextColor, 0x00FF00FF},
    {"AccelTextColor", &SpeedometerWidget::accelerationTextColor, 0x0000FF80},
    {"FastestColor", &SpeedometerWidget::fastestColor, 0x0080FF00},
    {"NorthArrowColor", &SpeedometerWidget::northNeedleColor, 0x00FF0000},
    {"SouthArrowColor", &SpeedometerWidget::southNeedleColor, 0x000000FF},
    {"ClockTextColor", &SpeedometerWidget::clockTextColor, 0x0080FF00},
};

constinit const TextSetting<SpeedometerWidget> SpeedometerWidget::TEXTS[] = {
    {"AccelTextFontName", "AccelFontSize", &SpeedometerWidget::accelerationStyle, "Times New Roman",
     18},
    {"FastestTextFontName", "FastestFontSize", &SpeedometerWidget::fastestStyle, "Times New Roman",
     14},
    {"OdomerTextFontName", "OdomerFontSize", &SpeedometerWidget::odometerStyle, "Times New Roman",
     28},
    {"SpeedTextFontName", "SpeedFontSize", &SpeedometerWidget::speedStyle, "LCD", 40},
    {"ClockTextFontName", "ClockFontSize", &SpeedometerWidget::clockStyle, "LCD", 32},
};

SpeedometerWidget::SpeedometerWidget(WidgetOwner& owner)
    : Widget(GetText(Word::SPEEDOMETER), owner) {
  InitColors(COLORS, *this);
  InitTexts(TEXTS, *this);
}

void SpeedometerWidget::LoadSettings(const IniStore& store) {
  LoadColors(COLORS, SECTION, store, *this);
  LoadTexts(TEXTS, SECTION, store, *this);
}

void SpeedometerWidget::SaveSettings(IniStore& store) const {
  store.SetValue("Comment", COMMENT.Get(), SECTION);
  SaveColors(COLORS, SECTION, store, *this);
  SaveFaces(TEXTS, SECTION, store, *this);
  SaveSizes(TEXTS, SECTION, store, *this);
}

void SpeedometerWidget::Attach() {
  if (!sensors.AreAllFound()) {
    sensors.Find(owner);
    dialFace.Load(owner.GetModuleDir() + TEXT("\\Pics\\speedometer.png"));
  }
  LoadIcons();
  Widget::Attach();
}

void SpeedometerWidget::LoadIcons() {
  icons.Load(owner.GetModuleDir());
  if (compassPicture == nullptr) {
    compassPicture = LoadPicture(owner.GetModuleDir() + TEXT("\\Pics\\compass.png"));
  }
}

void SpeedometerWidget::Paint(Canvas& canvas) {
  const RECT frame = canvas.GetFrameRect();
  const DialGeometry dial(DialRect({frame.right, frame.bottom}, dialFace.GetSize()));
  dialFace.Draw(canvas.GetDrawingDC(), dial.rect, backgroundColor);
  if (frame.right >= frame.bottom) {
    DrawLandscape(canvas, dial);
  } else {
    DrawPortrait(canvas, dial);
  }
}

/// The odometer stands where the face ends, and the needle at rest does not cover it.
void SpeedometerWidget::DrawLandscape(Canvas& canvas, const DialGeometry& dial) {
  const int fastestTop = dial.rect.bottom - FASTEST_RISE;
  DrawNeedle(canvas, dial);
  const int speedTop = DrawSpeed(canvas, dial, LANDSCAPE_SPEED_RISE);
  DrawMark(canvas, dial, sensors.averageSpeed, averageSpeedMarkColor);
  DrawMark(canvas, dial, sensors.maxSpeed, maxSpeedMarkColor);
  DrawOdometer(canvas, dial, std::min(fastestTop, dial.faceBottom) - TEXT_GAP - odometerStyle.size);
  DrawClock(canvas, dial, speedTop, CLOCK_RISE);
  DrawStatusIcons(canvas);
  DrawAcceleration(canvas, dial);
  const int width = dial.rect.right - dial.rect.left;
  DrawFastest(canvas, fastestStyle.GetFont(canvas),
              {5 * width / 32 + 2, 5 * width / 24, fastestTop});
  DrawCompass(canvas, dial);
}

/// The clock stands below the odometer inside the dial. The fastest times fill the room between the
/// face and the buttons.
void SpeedometerWidget::DrawPortrait(Canvas& canvas, const DialGeometry& dial) {
  DrawNeedle(canvas, dial);
  DrawSpeed(canvas, dial, PORTRAIT_SPEED_RISE);
  DrawMark(canvas, dial, sensors.averageSpeed, averageSpeedMarkColor);
  DrawMark(canvas, dial, sensors.maxSpeed, maxSpeedMarkColor);
  DrawOdometer(canvas, dial, dial.centerY);
  DrawClock(canvas, dial, dial.centerY + odometerStyle.size + TEXT_GAP, 0);
  DrawStatusIcons(canvas);
  const int width = dial.rect.right - dial.rect.left;
  const int top = dial.faceBottom + TEXT_GAP;
  const int room = canvas.GetFrameRect().bottom - BUTTONS_HEIGHT - top;
  const int size = std::min(room / FASTEST_LINES, width / FASTEST_TIMES_WIDTH);
  const Font font = canvas.MakeFontA(fastestStyle.face, std::max(fastestStyle.size, size), 0);
  DrawFastest(canvas, font.get(), {COLUMN_GAP / 2, width / 3, top});
  DrawAcceleration(canvas, dial);
}

void SpeedometerWidget::DrawNeedle(Canvas& canvas, const DialGeometry& dial) {
  const double kmh = GetSensorNumber(sensors.speed);
  if (sensors.speed != NO_SENSOR && DialGeometry::IsOnScale(kmh)) {
    const POINT tip = dial.PointAt(DialGeometry::AngleOf(kmh), dial.radius);
    canvas.DrawLine(speedArrowColor, NEEDLE_WIDTH, dial.centerX, dial.centerY, tip.x, tip.y);
  }
}

void SpeedometerWidget::DrawMark(Canvas& canvas, const DialGeometry& dial, int sensor,
                                 COLORREF color) {
  const double kmh = GetSensorNumber(sensor);
  if (sensor != NO_SENSOR && DialGeometry::IsOnScale(kmh)) {
    const double angle = DialGeometry::AngleOf(kmh);
    const POINT start = dial.PointAt(angle, MARK_START * (dial.rect.right - dial.rect.left));
    const POINT end = dial.PointAt(angle, dial.radius);
    canvas.DrawLine(color, MARK_WIDTH, start.x, start.y, end.x, end.y);
  }
}

/// `rise`: from the dial's centre up to the number's top, in heights of the number. Returns the
/// top.
int SpeedometerWidget::DrawSpeed(Canvas& canvas, const DialGeometry& dial, double rise) {
  if (sensors.speed == NO_SENSOR) {
    return dial.centerY;
  }
  const WideString text = Widen(Format("%0.0f", GetSensorNumber(sensors.speed)));
  const HFONT font = speedStyle.GetFont(canvas);
  const int top = CutToInt(dial.centerY - rise * canvas.MeasureText(font, text.c_str()).cy);
  DrawCentered(canvas, font, text, dial.centerX, top, speedTextColor);
  return top;
}

void SpeedometerWidget::DrawOdometer(Canvas& canvas, const DialGeometry& dial, int top) {
  if (sensors.distance != NO_SENSOR) {
    DrawCentered(canvas, odometerStyle.GetFont(canvas), Widen(GetSensorText(sensors.distance)),
                 dial.centerX, top, odometerTextColor);
  }
}

void SpeedometerWidget::DrawStatusIcons(Canvas& canvas) {
  icons.Draw(canvas, owner.GetFix().GetSatellitesUsed(), StatusIcons::Style::BLENDED_ICONS);
}

void SpeedometerWidget::DrawAcceleration(Canvas& canvas, const DialGeometry& dial) {
  for (const int index : sensors.acceleration.Get()) {
    const double target = AccelerationTarget(owner.GetSensor(index)->GetName());
    const double seconds = GetSensorNumber(index);
    if (target >= SLOWEST_TARGET && target <= FASTEST_TARGET && seconds != 0) {
      DrawAccelerationTime(canvas, dial, target, seconds);
    }
  }
}

/// The time stands along the rim, right before the speed that was reached.
void SpeedometerWidget::DrawAccelerationTime(Canvas& canvas, const DialGeometry& dial,
                                             double target, double seconds) {
  const double angle = DialGeometry::AngleOf(target);
  const Font font = canvas.MakeFontA(accelerationStyle.face, accelerationStyle.size,
                                     CutToInt(angle * DEGREES_PER_HALF_TURN / PI - TEXT_TURN));
  const POINT corner = dial.PointAt(angle + RIM_SHIFT, dial.radius + RIM_GAP);
  canvas.DrawText(font.get(), Widen(Format("%0.2f", seconds)).c_str(), corner.x, corner.y,
                  accelerationTextColor);
}

void SpeedometerWidget::DrawFastest(Canvas& canvas, HFONT font, const Columns& columns) {
  RECT column = {columns.left, columns.top, columns.left + columns.width - COLUMN_GAP, 0};
  for (const int index : sensors.fastest.Get()) {
    DrawFastestTime(canvas, font, index, column);
    column.left += columns.width;
    column.right += columns.width;
  }
}

/// The distance, a bracket below it, and the time below the bracket.
void SpeedometerWidget::DrawFastestTime(Canvas& canvas, HFONT font, int sensor,
                                        const RECT& column) {
  const int middle = (column.left + column.right) / 2;
  const WideString distance =
      Widen(Format("%g", FastestDistance(owner.GetSensor(sensor)->GetName())));
  const int bracket = column.top + canvas.MeasureText(font, distance.c_str()).cy;
  DrawCentered(canvas, font, distance, middle, column.top, fastestColor);
  for (const LONG x : {column.left, column.right}) {
    canvas.DrawThinLine(fastestColor, x, bracket - 1, x, bracket + 3);
  }
  canvas.DrawThinLine(fastestColor, column.right, bracket + 1, column.left, bracket + 1);
  DrawCentered(canvas, font, Widen(GetSensorText(sensor)), middle, bracket + 2, fastestColor);
}

/// The needle turns against the course and so points to the north. The rose stands still.
void SpeedometerWidget::DrawCompass(Canvas& canvas, const DialGeometry& dial) {
  const RECT frame = canvas.GetFrameRect();
  if (frame.right - dial.rect.right < COMPASS_SIZE || sensors.azimuth == NO_SENSOR ||
      compassPicture == nullptr) {
    return;
  }
  const RECT rect = {frame.right - COMPASS_SIZE, frame.bottom - COMPASS_SIZE, frame.right,
                     frame.bottom};
  compassPicture->DrawBlended(canvas.GetDrawingDC(), rect, OPAQUE_ALPHA);
  const int x = rect.left + COMPASS_CENTER;
  const int y = rect.top + COMPASS_CENTER;
  const double angle = (90 - GetSensorNumber(sensors.azimuth)) * PI * (1 / DEGREES_PER_HALF_TURN);
  const double dx = COMPASS_NEEDLE * std::cos(angle);
  const double dy = COMPASS_NEEDLE * std::sin(angle);
  canvas.DrawLine(southNeedleColor, NEEDLE_WIDTH, x, y, Nearest(x + dx), Nearest(y + dy));
  canvas.DrawLine(northNeedleColor, NEEDLE_WIDTH, x, y, Nearest(x - dx), Nearest(y - dy));
}

/// `rise`: from the line up to the clock's top, in heights of the clock.
void SpeedometerWidget::DrawClock(Canvas& canvas, const DialGeometry& dial, int line, double rise) {
  if (sensors.currentTime == NO_SENSOR) {
    return;
  }
  const WideString text = Widen(GetSensorText(sensors.currentTime));
  const HFONT font = clockStyle.GetFont(canvas);
  const SIZE extent = canvas.MeasureText(font, text.c_str());
  canvas.DrawText(font, text.c_str(), (dial.rect.left + dial.rect.right - extent.cx) / 2,
                  CutToInt(line - rise * extent.cy), clockTextColor);
}

void SpeedometerWidget::DrawCentered(Canvas& canvas, HFONT font, const WideString& text,
                                     int centerX, int top, COLORREF color) {
  canvas.DrawText(font, text.c_str(), centerX - canvas.MeasureText(font, text.c_str()).cx / 2, top,
                  color);
}

}  // namespace ferolin
