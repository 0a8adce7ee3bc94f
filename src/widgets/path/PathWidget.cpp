#include "widgets/path/PathWidget.h"

#include <ferolin.h>

#include "base/Cp1251.h"
#include "base/Lock.h"
#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "render/GdiObject.h"
#include "render/Rect.h"
#include "sensors/Sensor.h"
#include "widgets/WidgetOwner.h"
#include "widgets/path/PathPanel.h"

namespace ferolin {

namespace {

constexpr const char* SECTION = "PathWidget";
constexpr Cp1251Text COMMENT = u"Настройки виджета пройденного пути";

struct OwnButton {
  const WCHAR* file;
  LPARAM code;
};

/// Rows are filled from the right: a row over the arrows reads centre, automatic, in, out.
constexpr OwnButton OWN_BUTTONS[] = {
    {TEXT("\\Pics\\BtnZoomOut.png"), FEROLIN_BUTTON_ZOOM_OUT},
    {TEXT("\\Pics\\BtnZoomIn.png"), FEROLIN_BUTTON_ZOOM_IN},
    {TEXT("\\Pics\\BtnZoomAuto.png"), FEROLIN_BUTTON_AUTOMATIC_ZOOM},
    {TEXT("\\Pics\\BtnCenterPos.png"), FEROLIN_BUTTON_CENTER_POSITION},
};

constexpr LONG SMALLEST_AREA = 10;  // wide and high
constexpr int FEWEST_POINTS = 2;

// The start is a ring, the end a disc that fits into it.
constexpr int START_RADIUS = 7;
constexpr int START_WIDTH = 2;
constexpr int END_RADIUS = 5;

bool Contains(const RECT& rect, POINT point) {
  return point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
         point.y < rect.bottom;
}

}  // namespace

constinit const ColorSetting<PathWidget> PathWidget::COLORS[] = {
    {"BorderColor", &PathWidget::borderColor, 0x00606060},
    {"BackGroundColor", &PathWidget::backgroundColor, 0x00000000},
    {"PathColor", &PathWidget::pathColor, 0x00FFFF00},
    {"SmallTimeTextColor", &PathWidget::labelColor, 0x00FFFFFF},
    {"MidTimeTextColor", &PathWidget::valueColor, 0x0080FF00},
    {"BigTimeTextColor", &PathWidget::speedColor, 0x0080FF00},
    {"EndPointColor", &PathWidget::endPointColor, 0x000000FF},
    {"StartPointColor", &PathWidget::startPointColor, 0x000000FF},
};

constinit const TextSetting<PathWidget> PathWidget::TEXTS[] = {
    {"SmallTextFontName", "SmallTextSize", &PathWidget::labelStyle, "Times New Roman", 13},
    {"MidTextFontName", "MidTextSize", &PathWidget::valueStyle, "LCD", 20},
    {"BigTextFontName", "BigTextSize", &PathWidget::speedStyle, "LCD", 30},
};

constinit const PathWidget::ButtonAction PathWidget::ACTIONS[] = {
    {FEROLIN_BUTTON_ZOOM_IN, &PathWidget::ZoomIn},
    {FEROLIN_BUTTON_ZOOM_OUT, &PathWidget::ZoomOut},
    {FEROLIN_BUTTON_CENTER_POSITION, &PathWidget::RequestCenter},
    {FEROLIN_BUTTON_AUTOMATIC_ZOOM, &PathWidget::ZoomAutomatically},
};

PathWidget::PathWidget(WidgetOwner& owner) : Widget(GetText(Word::DISTANCE), owner) {
  InitColors(COLORS, *this);
  InitTexts(TEXTS, *this);
}

void PathWidget::LoadSettings(const IniStore& store) {
  LoadColors(COLORS, SECTION, store, *this);
  LoadTexts(TEXTS, SECTION, store, *this);
}

void PathWidget::SaveSettings(IniStore& store) const {
  store.SetValue("Comment", COMMENT.Get(), SECTION);
  SaveColors(COLORS, SECTION, store, *this);
  SaveSizes(TEXTS, SECTION, store, *this);
  SaveFaces(TEXTS, SECTION, store, *this);
}

void PathWidget::CreateOwnButtons() {
  if (!ownBar.IsEmpty()) {
    return;
  }
  CreateNavigationButtons();
  for (const OwnButton& button : OWN_BUTTONS) {
    AddButton(ownBar, button.file, button.code);
  }
}

/// Called with every update. Catching up here keeps the figures independent of when the view is
/// shown, and the first frame of a long track short.
void PathWidget::Attach() {
  if (speedSensor == NO_SENSOR || timeSensor == NO_SENSOR) {
    FindSensors();
  }
  CatchUp();
  Widget::Attach();
}

/// Of several sensors with the same name the last one counts.
void PathWidget::FindSensors() {
  for (int sensorIndex = 0; sensorIndex < owner.GetSensorCount(); ++sensorIndex) {
    const Sensor& sensor = *owner.GetSensor(sensorIndex);
    if (IsNamed(sensor, Word::SPEED)) {
      speedSensor = sensorIndex;
    } else if (IsNamed(sensor, Word::CURRENT_TIME)) {
      timeSensor = sensorIndex;
    }
  }
}

void PathWidget::CatchUp() {
  const PathPoints points(owner.GetFix().GetTrack());
  trip.Update(points);
  index.Update(points);
}

void PathWidget::Paint(Canvas& canvas) {
  CatchUp();
  const PathPanel panel(
      canvas, {{labelStyle, labelColor}, {valueStyle, valueColor}, {speedStyle, speedColor}});
  panel.Draw(GetReadouts());
  DrawPath(canvas, panel.GetRest());
}

PathReadouts PathWidget::GetReadouts() const {
  return {
      .speed = PathSpeedText(GetSensorNumber(speedSensor)),
      .currentTime = GetSensorText(timeSensor),
      .elapsed = ElapsedText(trip.GetElapsedSeconds()),
      .averageSpeed = PathSpeedText(trip.GetAverageKmh()),
      .distance = PathDistanceText(trip.GetDistanceKm()),
  };
}

/// Draws a thin border around the path's area, and the path if there is one. The path fills its
/// area itself.
void PathWidget::DrawPath(Canvas& canvas, const RECT& rect) {
  pathArea = Inset(rect, 1);
  const PathPoints points(owner.GetFix().GetTrack());
  if (!CanDrawPath(points)) {
    canvas.DrawRectangle(borderColor, 1, backgroundColor, rect);
    return;
  }
  canvas.DrawOutline(borderColor, rect);
  if (isCenterRequested) {
    isCenterRequested = false;
    Center(points);
  }
  const PathProjection projection(trip.GetBox(), pathArea, zoom, pan);
  layer.Draw(canvas.GetDrawingDC(), points, index, projection, {backgroundColor, pathColor});
  DrawMarks(canvas, points, projection);
}

bool PathWidget::CanDrawPath(const PathPoints& points) const {
  return pathArea.right - pathArea.left >= SMALLEST_AREA &&
         pathArea.bottom - pathArea.top >= SMALLEST_AREA && points.GetCount() >= FEWEST_POINTS &&
         trip.GetBox().HasArea();
}

/// The end is drawn over the start: it is the current position.
void PathWidget::DrawMarks(Canvas& canvas, const PathPoints& points,
                           const PathProjection& projection) {
  const Region region(CreateRectRgn(pathArea.left, pathArea.top, pathArea.right, pathArea.bottom));
  canvas.SetClipRegion(region.get());
  const POINT start = projection.Project(points[points.GetFirst()]);
  if (Contains(Inset(pathArea, -START_RADIUS), start)) {
    canvas.DrawFilledCircle(startPointColor, START_WIDTH, backgroundColor, start.x, start.y,
                            START_RADIUS);
  }
  const POINT end = projection.Project(points.GetNewest());
  if (Contains(Inset(pathArea, -END_RADIUS), end)) {
    canvas.DrawFilledCircle(endPointColor, 1, endPointColor, end.x, end.y, END_RADIUS);
  }
  canvas.SetClipRegion(nullptr);
}

/// Pans so that the current position lies in the middle.
void PathWidget::Center(const PathPoints& points) {
  const POINT middle = {(pathArea.left + pathArea.right) / 2, (pathArea.top + pathArea.bottom) / 2};
  const PathProjection unmoved(trip.GetBox(), pathArea, zoom, {0, 0});
  pan = unmoved.PanTo(points.GetNewest(), middle);
}

void PathWidget::ZoomIn() {
  zoom *= 2.0F;
}

void PathWidget::ZoomOut() {
  zoom *= 0.5F;
}

void PathWidget::ZoomAutomatically() {
  zoom = 1;
  pan = {0, 0};
}

/// The base class posts the button's code to the host afterwards.
void PathWidget::OnMouseUp(HWND window, POINT point) {
  bool isChanged = false;
  {
    const LockGuard guard(owner.GetDataLock());
    const Button* button = GetButtonAt(window, point);
    for (const ButtonAction& action : ACTIONS) {
      if (button != nullptr && button->message.lParam == action.code) {
        (this->*action.act)();
        isChanged = true;
      }
    }
  }
  if (isChanged) {
    owner.RequestRedraw();
  }
  Widget::OnMouseUp(window, point);
}

void PathWidget::OnMouseMove(HWND, POINT point) {
  bool isChanged = false;
  {
    const LockGuard guard(owner.GetDataLock());
    isChanged = isMouseDown && Drag(point);
  }
  if (isChanged) {
    owner.RequestRedraw();
  }
}

/// The path follows the finger, however the frame is turned or scaled. Moving `lastPoint` along
/// keeps a drag from being taken for a swipe.
bool PathWidget::Drag(POINT point) {
  const POINT to = ToFrame(point);
  if (!Contains(pathArea, to)) {
    return false;
  }
  const POINT from = ToFrame(lastPoint);
  pan.x += to.x - from.x;
  pan.y += to.y - from.y;
  lastPoint = point;
  return true;
}

}  // namespace ferolin
