// The list of views. Hosts keep choices by index, so the order never changes.

#include <new>

#include "engine/Engine.h"
#include "widgets/FullScreenSpeedWidget.h"
#include "widgets/PathWidget.h"
#include "widgets/SatellitesWidget.h"
#include "widgets/SpeedChartWidget.h"
#include "widgets/SpeedometerWidget.h"

namespace ferolin {

namespace {

using WidgetPointer = std::unique_ptr<Widget>;

template <class View>
WidgetPointer Make(Engine& engine) {
  return WidgetPointer(new (std::nothrow) View(engine));
}

constexpr WidgetPointer (*WIDGETS[])(Engine&) = {
    &Make<SpeedometerWidget>, &Make<FullScreenSpeedWidget>, &Make<SatellitesWidget>,
    &Make<PathWidget>,        &Make<SpeedChartWidget>,
};

}  // namespace

/// Should the memory run out, the list ends there.
void Engine::BuildWidgetTable() {
  static_assert(std::size(WIDGETS) <= MAX_WIDGETS);
  for (const auto makeWidget : WIDGETS) {
    WidgetPointer widget = makeWidget(*this);
    if (widget == nullptr) {
      return;
    }
    widgets[static_cast<std::size_t>(widgetCount++)] = std::move(widget);
  }
}

}  // namespace ferolin
