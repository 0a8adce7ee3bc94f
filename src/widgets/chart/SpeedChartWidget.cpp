#include "widgets/chart/SpeedChartWidget.h"

#include <ferolin.h>

#include <algorithm>

#include "base/CodePage.h"
#include "base/Cp1251.h"
#include "base/Format.h"
#include "base/Lock.h"
#include "gps/FixRecord.h"
#include "render/Canvas.h"
#include "render/Rect.h"
#include "sensors/LocalizedText.h"
#include "widgets/WidgetOwner.h"
#include "widgets/chart/SpeedScale.h"

namespace ferolin {

namespace {

constexpr const char* SECTION = "SpeedChartWidget";
constexpr Cp1251Text COMMENT = u"Настройки виджета графика скорости";

constexpr int LARGEST_ZOOM = 128;
/// From this zoom on, points share their columns.
constexpr int FIRST_SHARED_ZOOM = 3;

constexpr LONG FRAME_MARGIN = 5;
constexpr LONG CAPTION_HEIGHT = 10;
constexpr LONG PLOT_MARGIN = 10;
constexpr LONG OVERHANG = 5;        // length of axes and lines beyond the plot
constexpr LONG NEWEST_MARGIN = 10;  // from the newest column to the plot's right side
constexpr LONG LABEL_GAP = 4;
constexpr LONG CLOSEST_LINES = 8;  // distance of minute lines that are as bright as the axes
constexpr int CHART_WIDTH = 2;

constexpr COLORREF Mixed(COLORREF one, COLORREF other) {
  return (one & other) + ((one ^ other) >> 1 & 0x007F7F7F);
}

/// The part of a view that the chart may use.
RECT ChartFrame(const RECT& view) {
  RECT frame = Inset(view, FRAME_MARGIN);
  frame.top += CAPTION_HEIGHT;
  return frame;
}

}  // namespace

constinit const ColorSetting<SpeedChartWidget> SpeedChartWidget::COLORS[] = {
    {"BorderColor", &SpeedChartWidget::borderColor, 0x00606060},
    {"BackGroundColor", &SpeedChartWidget::backgroundColor, 0x00000000},
    {"ChartColor", &SpeedChartWidget::chartColor, 0x0080FF00},
    {"CurSpeedLineColor", &SpeedChartWidget::currentSpeedLineColor, 0x00FF00FF},
    {"MaxSpeedLineColor", &SpeedChartWidget::maxSpeedLineColor, 0x0000FFFF},
    {"SmallTextColor", &SpeedChartWidget::smallTextColor, 0x00FFFFFF},
    {"BigTextColor", &SpeedChartWidget::bigTextColor, 0x00FFFF00},
    {"AxesColor", &SpeedChartWidget::axesColor, 0x00FFFF00},
};

constinit const TextSetting<SpeedChartWidget> SpeedChartWidget::TEXTS[] = {
    {"SmallTextFontName", "SmallTextSize", &SpeedChartWidget::smallStyle, "Times New Roman", 13},
    {"BigTextFontName", "BigTextSize", &SpeedChartWidget::bigStyle, "Times New Roman", 30},
};

SpeedChartWidget::SpeedChartWidget(WidgetOwner& owner) : Widget(GetText(Word::SPEED_CHART), owner) {
  InitColors(COLORS, *this);
  InitTexts(TEXTS, *this);
}

void SpeedChartWidget::LoadSettings(const IniStore& store) {
  LoadColors(COLORS, SECTION, store, *this);
  LoadTexts(TEXTS, SECTION, store, *this);
}

void SpeedChartWidget::SaveSettings(IniStore& store) const {
  store.SetValue("Comment", COMMENT.Get(), SECTION);
  SaveColors(COLORS, SECTION, store, *this);
  SaveSizes(TEXTS, SECTION, store, *this);
  SaveFaces(TEXTS, SECTION, store, *this);
}

/// The buttons of the other views come first. The zoom buttons have a second line where the first
/// has no room for them.
void SpeedChartWidget::CreateOwnButtons() {
  if (!ownBar.IsEmpty()) {
    return;
  }
  CreateNavigationButtons();
  AddButton(ownBar, TEXT("\\Pics\\BtnZoomIn.png"), FEROLIN_BUTTON_ZOOM_IN);
  AddButton(ownBar, TEXT("\\Pics\\BtnZoomOut.png"), FEROLIN_BUTTON_ZOOM_OUT);
  AddButton(ownBar, TEXT("\\Pics\\BtnZoomAuto.png"), FEROLIN_BUTTON_AUTOMATIC_ZOOM);
}

void SpeedChartWidget::OnMouseUp(HWND window, POINT point) {
  bool hasChanged = false;
  {
    const LockGuard guard(owner.GetDataLock());
    const Button* button = GetButtonAt(window, point);
    hasChanged = button != nullptr && Zoom(button->message.lParam);
  }
  if (hasChanged) {
    owner.RequestRedraw();
  }
  Widget::OnMouseUp(window, point);
}

/// Does to the zoom what the button with that code stands for. Returns whether the zoom changed.
bool SpeedChartWidget::Zoom(LPARAM code) {
  const int previous = zoom;
  switch (code) {
    case FEROLIN_BUTTON_ZOOM_IN:
      zoom = std::max(zoom / 2, 1);
      break;
    case FEROLIN_BUTTON_ZOOM_OUT:
      zoom = std::min(zoom * 2, LARGEST_ZOOM);
      break;
    case FEROLIN_BUTTON_AUTOMATIC_ZOOM:
      zoom = 1;
      break;
    default:
      break;
  }
  return zoom != previous;
}

void SpeedChartWidget::MakePens() {
  if (!pens) {
    pens = Pens{DashedPen(axesColor),
                DashedPen(Mixed(Mixed(axesColor, backgroundColor), backgroundColor)),
                DashedPen(currentSpeedLineColor), DashedPen(maxSpeedLineColor)};
  }
}

void SpeedChartWidget::Paint(Canvas& canvas) {
  MakePens();
  const RECT frame = ChartFrame(canvas.GetFrameRect());
  const RECT plot = Inset(frame, PLOT_MARGIN);
  const std::span<const TrackPoint> points = VisiblePoints(plot.right - plot.left - NEWEST_MARGIN);
  marks.Begin(canvas, smallStyle.GetFont(canvas), frame.left, frame.right);
  Collect(plot, points);
  const SpeedScale scale(columns.GetMaximum());
  DrawBox(canvas, plot);
  DrawGrid(canvas, plot, scale);
  DrawTitles(canvas, plot);
  DrawMarks(canvas, plot);
  DrawChart(canvas, plot, scale);
  if (!points.empty()) {
    DrawSpeeds(canvas, plot, scale, std::max(points.back().speedKmh, 0.0F));
  }
  DrawScale(canvas, plot, scale);
}

/// The newest points, as many as there is room for.
std::span<const TrackPoint> SpeedChartWidget::VisiblePoints(int columnCount) const {
  const int count = owner.GetFix().GetPointCount();
  const int visible = std::min(count, std::max(columnCount, 0) * zoom);
  const TrackPoint* first = owner.GetFix().GetPoint(count - visible);
  return first != nullptr ? std::span(first, static_cast<std::size_t>(visible))
                          : std::span<const TrackPoint>();
}

/// Walks the points once, from the newest backwards: zoomed out far there are many. Each group of
/// points stands in the column of its newest one.
void SpeedChartWidget::Collect(const RECT& plot, std::span<const TrackPoint> points) {
  const std::size_t perColumn = zoom >= FIRST_SHARED_ZOOM ? static_cast<std::size_t>(zoom) : 1;
  columns.Clear();
  for (std::size_t end = points.size(); end > 0;) {
    const std::size_t begin = end - std::min(perColumn, end);
    const auto group = points.subspan(begin, end - begin);
    const int x = static_cast<int>(end - 1) / zoom;
    if (!columns.Add(x, group)) {
      return;
    }
    marks.Add(plot.left + x, group);
    end = begin;
  }
}

/// The axes at the left and below, and a border at the other two sides.
void SpeedChartWidget::DrawBox(Canvas& canvas, const RECT& plot) {
  const LONG right = plot.right + OVERHANG;
  canvas.DrawThinLine(borderColor, plot.left, plot.top, right, plot.top);
  canvas.DrawThinLine(borderColor, right, plot.top, right, plot.bottom);
  canvas.DrawThinLine(axesColor, plot.left, plot.top, plot.left, plot.bottom);
  canvas.DrawThinLine(axesColor, plot.left, plot.bottom, right, plot.bottom);
}

void SpeedChartWidget::DrawGrid(Canvas& canvas, const RECT& plot, const SpeedScale& scale) {
  for (int kmh = scale.step; kmh <= scale.top; kmh += scale.step) {
    const LONG row = scale.RowOf(static_cast<float>(kmh), plot);
    pens->axes.DrawLine(canvas, plot.left - OVERHANG, row, plot.right, row);
  }
}

/// Labels stand on the lines of the grid. They are drawn after the chart, which would hide them.
void SpeedChartWidget::DrawScale(Canvas& canvas, const RECT& plot, const SpeedScale& scale) {
  const HFONT font = smallStyle.GetFont(canvas);
  for (int kmh = 0; kmh <= scale.top; kmh += scale.step) {
    WideString label = Widen(Format("%i", kmh));
    if (kmh == scale.top) {
      label += TEXT(" км/ч");
    }
    DrawRimmed(canvas, font, label,
               {plot.left + LABEL_GAP, scale.RowOf(static_cast<float>(kmh), plot) -
                                           canvas.MeasureText(font, label.c_str()).cy},
               smallTextColor);
  }
}

/// Above the plot: the view's name in the middle, the zoom at the right.
void SpeedChartWidget::DrawTitles(Canvas& canvas, const RECT& plot) {
  const HFONT font = smallStyle.GetFont(canvas);
  const WideString caption = Widen(GetName());
  const SIZE extent = canvas.MeasureText(font, caption.c_str());
  canvas.DrawText(font, caption.c_str(), (plot.left + plot.right - extent.cx) / 2,
                  (FRAME_MARGIN + CAPTION_HEIGHT - extent.cy) / 2, smallTextColor);
  const WideString text = Widen(Format("Zoom:%ix", zoom));
  const SIZE size = canvas.MeasureText(font, text.c_str());
  canvas.DrawText(font, text.c_str(), plot.right - size.cx, plot.top - size.cy, smallTextColor);
}

/// Labels stand at the view's lower edge, below the plot. Lines that stand close together are dim,
/// for the chart to be brighter than all of them.
void SpeedChartWidget::DrawMarks(Canvas& canvas, const RECT& plot) {
  const HFONT font = smallStyle.GetFont(canvas);
  const LONG top = canvas.GetFrameRect().bottom - canvas.MeasureText(font, TEXT("0")).cy;
  for (const MinuteMarks::Label& label : marks.GetLabels()) {
    canvas.DrawText(font, label.text.data(), label.left, top, smallTextColor);
  }
  const std::span<const LONG> lines = marks.GetLines();
  const bool areClose = !lines.empty() && lines.front() - lines.back() <
                                              static_cast<LONG>(lines.size() - 1) * CLOSEST_LINES;
  const DashedPen& pen = areClose ? pens->closeMinutes : pens->axes;
  for (const LONG x : lines) {
    pen.DrawLine(canvas, x, plot.top, x, plot.bottom + OVERHANG);
  }
}

void SpeedChartWidget::DrawChart(Canvas& canvas, const RECT& plot, const SpeedScale& scale) {
  line.Clear();
  for (const SpeedColumns::Column& column : columns.Get()) {
    const LONG x = plot.left + column.x;
    if (!line.Add({x, scale.RowOf(column.minimum, plot)}) ||
        (column.maximum != column.minimum && !line.Add({x, scale.RowOf(column.maximum, plot)}))) {
      break;
    }
  }
  canvas.DrawPolyline(chartColor, CHART_WIDTH, line.Get().data(),
                      static_cast<int>(line.Get().size()));
}

/// The current speed stands at the right, at the newest column. The maximum stands at the other end
/// of its line, where it hides the oldest columns instead of the newest, and has its line's colour.
void SpeedChartWidget::DrawSpeeds(Canvas& canvas, const RECT& plot, const SpeedScale& scale,
                                  float current) {
  if (columns.Get().empty()) {
    return;
  }
  const float maximum = columns.GetMaximum();
  const LONG currentRow = scale.RowOf(current, plot);
  const LONG maximumRow = scale.RowOf(maximum, plot);
  pens->currentSpeed.DrawLine(canvas, plot.left, currentRow, plot.left + columns.Get().front().x,
                              currentRow);
  pens->maxSpeed.DrawLine(canvas, plot.left, maximumRow, plot.right, maximumRow);
  const LONG labels = canvas.MeasureText(smallStyle.GetFont(canvas), TEXT("000")).cx;
  DrawSpeed(canvas, plot, maximum, {plot.left + labels + 2 * LABEL_GAP, maximumRow},
            maxSpeedLineColor);
  DrawSpeed(canvas, plot, current, {plot.right, currentRow}, bigTextColor);
}

/// The speed stands on its line, or below a line without room above, always inside the plot.
void SpeedChartWidget::DrawSpeed(Canvas& canvas, const RECT& plot, float kmh, POINT place,
                                 COLORREF color) {
  const HFONT font = bigStyle.GetFont(canvas);
  const WideString text = Widen(Format("%.0f", kmh));
  const SIZE size = canvas.MeasureText(font, text.c_str());
  const LONG above = place.y - size.cy;
  const LONG top = std::max(above >= plot.top ? above : place.y + 1, plot.top);
  DrawRimmed(canvas, font, text, {std::min(place.x, plot.right - size.cx), top}, color);
}

/// Draws the text with a rim in the background's colour, which sets it off from the chart.
void SpeedChartWidget::DrawRimmed(Canvas& canvas, HFONT font, const WideString& text, POINT corner,
                                  COLORREF color) {
  for (const POINT& offset : {POINT{-1, 0}, POINT{1, 0}, POINT{0, -1}, POINT{0, 1}}) {
    canvas.DrawText(font, text.c_str(), corner.x + offset.x, corner.y + offset.y, backgroundColor);
  }
  canvas.DrawText(font, text.c_str(), corner.x, corner.y, color);
}

}  // namespace ferolin
