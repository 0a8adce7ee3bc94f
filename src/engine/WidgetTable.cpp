// The list of views. Hosts keep choices by index, so the order never changes.

#include <ferolin.h>

#include <new>

#include "engine/Engine.h"
#include "widgets/chart/SpeedChartWidget.h"
#include "widgets/dial/SpeedometerWidget.h"
#include "widgets/path/PathWidget.h"
#include "widgets/satellites/SatellitesWidget.h"
#include "widgets/speed/FullScreenSpeedWidget.h"

namespace ferolin {

namespace {

using WidgetPointer = std::unique_ptr<Widget>;

template <class View>
WidgetPointer Make(Engine& engine) {
  return WidgetPointer(new (std::nothrow) View(engine));
}

struct WidgetEntry {
  FerolinView index;
  WidgetPointer (*make)(Engine&);
};

constexpr WidgetEntry WIDGETS[] = {
    {FEROLIN_VIEW_SPEEDOMETER, &Make<SpeedometerWidget>},
    {FEROLIN_VIEW_FULL_SCREEN_SPEED, &Make<FullScreenSpeedWidget>},
    {FEROLIN_VIEW_SATELLITES, &Make<SatellitesWidget>},
    {FEROLIN_VIEW_PATH, &Make<PathWidget>},
    {FEROLIN_VIEW_SPEED_CHART, &Make<SpeedChartWidget>},
};

constexpr bool IsInOrder() {
  int index = 0;
  for (const WidgetEntry& entry : WIDGETS) {
    if (entry.index != index++) {
      return false;
    }
  }
  return index == FEROLIN_VIEW_COUNT;
}

static_assert(IsInOrder(), "hosts know the views by these indexes");

}  // namespace

/// Should the memory run out, the list ends there.
void Engine::BuildWidgetTable() {
  static_assert(std::size(WIDGETS) <= MAX_WIDGETS);
  for (const WidgetEntry& entry : WIDGETS) {
    WidgetPointer widget = entry.make(*this);
    if (widget == nullptr) {
      return;
    }
    widgets[static_cast<std::size_t>(widgetCount++)] = std::move(widget);
  }
}

}  // namespace ferolin
