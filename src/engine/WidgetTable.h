#pragma once

#include <array>
#include <memory>

#include "widgets/Widget.h"

namespace ferolin {

class IniStore;
class WidgetOwner;

/// The views, owned, in the order of `FerolinView`.
class WidgetTable {
 public:
  static constexpr std::size_t MAX_WIDGETS = 10;

  /// Should the memory run out, the list ends there.
  explicit WidgetTable(WidgetOwner& owner);

  /// Null for an index out of range.
  Widget* Get(int index) const;
  int GetCount() const { return widgetCount; }

  /// Makes what the views lack and lays their bars out for the render window's shape.
  void Attach();
  void LoadSettings(const IniStore& store);
  void SaveSettings(IniStore& store) const;

 private:
  std::array<std::unique_ptr<Widget>, MAX_WIDGETS> widgets;
  std::int32_t widgetCount = 0;
};

}  // namespace ferolin
