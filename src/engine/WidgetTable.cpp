#include "engine/WidgetTable.h"

#include <ferolin.h>

#include <new>

#include "widgets/chart/SpeedChartWidget.h"
#include "widgets/dial/SpeedometerWidget.h"
#include "widgets/path/PathWidget.h"
#include "widgets/satellites/SatellitesWidget.h"
#include "widgets/speed/FullScreenSpeedWidget.h"

namespace ferolin {

namespace {

using WidgetPointer = std::unique_ptr<Widget>;

template <class View>
WidgetPointer Make(WidgetOwner& owner) {
  return WidgetPointer(new (std::nothrow) View(owner));
}

struct WidgetEntry {
  FerolinView index;
  WidgetPointer (*make)(WidgetOwner&);
};

constexpr WidgetEntry WIDGETS[] = {
    {FEROLIN_VIEW_SPEEDOMETER, &Make<SpeedometerWidget>},
    {FEROLIN_VIEW_FULL_SCREEN_SPEED, &Make<FullScreenSpeedWidget>},
    {FEROLIN_VIEW_SATELLITES, &Make<SatellitesWidget>},
    {FEROLIN_VIEW_PATH, &Make<PathWidget>},
    {FEROLIN_VIEW_SPEED_CHART, &Make<SpeedChartWidget>},
};

constexpr bool AreWidgetsInOrder() {
  int index = 0;
  for (const WidgetEntry& entry : WIDGETS) {
    if (entry.index != index++) {
      return false;
    }
  }
  return index == FEROLIN_VIEW_COUNT;
}

static_assert(AreWidgetsInOrder(), "hosts know the views by these indexes");

}  // namespace

WidgetTable::WidgetTable(WidgetOwner& owner) {
  static_assert(std::size(WIDGETS) <= MAX_WIDGETS);
  for (const WidgetEntry& entry : WIDGETS) {
    WidgetPointer widget = entry.make(owner);
    if (widget == nullptr) {
      return;
    }
    widgets[static_cast<std::size_t>(widgetCount++)] = std::move(widget);
  }
}

Widget* WidgetTable::Get(int index) const {
  return index >= 0 && index < widgetCount ? widgets[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

void WidgetTable::Attach() {
  for (int index = 0; index < widgetCount; ++index) {
    Get(index)->Attach();
  }
}

void WidgetTable::LoadSettings(const IniStore& store) {
  for (int index = 0; index < widgetCount; ++index) {
    Get(index)->LoadSettings(store);
  }
}

void WidgetTable::SaveSettings(IniStore& store) const {
  for (int index = 0; index < widgetCount; ++index) {
    Get(index)->SaveSettings(store);
  }
}

}  // namespace ferolin
