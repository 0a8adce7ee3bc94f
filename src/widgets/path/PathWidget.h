#pragma once

#include "render/TextStyle.h"
#include "widgets/ColorSetting.h"
#include "widgets/SensorSearch.h"
#include "widgets/TextSetting.h"
#include "widgets/Widget.h"
#include "widgets/path/PathIndex.h"
#include "widgets/path/PathLayer.h"
#include "widgets/path/PathReadouts.h"
#include "widgets/path/PathTrip.h"

namespace ferolin {

/// The way driven in this run, fitted into the frame, with figures of the trip beside it. It can be
/// magnified, dragged and centred on the current position.
class PathWidget : public Widget {
 public:
  explicit PathWidget(WidgetOwner& owner);

  void CreateOwnButtons() override;
  void Attach() override;
  void SaveSettings(IniStore& store) const override;
  void LoadSettings(const IniStore& store) override;
  void OnMouseUp(HWND window, POINT point) override;
  void OnMouseMove(HWND window, POINT point) override;

 private:
  void Paint(Canvas& canvas) override;

  struct ButtonAction {
    LPARAM code;
    void (PathWidget::*act)();
  };

  static const ColorSetting<PathWidget> COLORS[8];
  static const TextSetting<PathWidget> TEXTS[3];
  static const ButtonAction ACTIONS[4];

  void FindSensors();
  void CatchUp();
  PathReadouts GetReadouts() const;
  void DrawPath(Canvas& canvas, const RECT& rect);
  bool CanDrawPath(const PathPoints& points) const;
  void DrawMarks(Canvas& canvas, const PathPoints& points, const PathProjection& projection);
  void Center(const PathPoints& points);
  bool Drag(POINT point);

  void ZoomIn();
  void ZoomOut();
  void ZoomAutomatically();
  void RequestCenter() { isCenterRequested = true; }

  COLORREF borderColor;
  COLORREF pathColor;
  COLORREF labelColor;
  COLORREF valueColor;
  COLORREF speedColor;
  COLORREF endPointColor;
  COLORREF startPointColor;
  TextStyle labelStyle;
  TextStyle valueStyle;
  TextStyle speedStyle;
  int speedSensor = NO_SENSOR;
  int timeSensor = NO_SENSOR;
  PathTrip trip;
  PathIndex index;
  PathLayer layer;
  RECT pathArea = {};  ///< area of the path in the last frame
  POINT pan = {};
  float zoom = 1;
  bool isCenterRequested = false;
};

}  // namespace ferolin
