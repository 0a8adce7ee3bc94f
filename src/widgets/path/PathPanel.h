#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

#include "widgets/path/PathReadouts.h"

namespace ferolin {

class Canvas;
class TextStyle;

/// The texts beside the path: at the right of a landscape frame, at the bottom of a portrait one,
/// where the view's buttons lie too, so that the path stays to be seen while they are up. Laid out
/// anew for every frame, by the sizes that the texts have.
class PathPanel {
 public:
  /// Borrowed.
  struct Ink {
    TextStyle& style;
    COLORREF color;
  };
  /// For labels, for values, and for the speed.
  struct Inks {
    Ink label;
    Ink value;
    Ink speed;
  };

  PathPanel(Canvas& target, const Inks& theInks);

  /// What the panel leaves of the frame; empty when it leaves nothing.
  const RECT& GetRest() const { return rest; }

  void Draw(const PathReadouts& readouts) const;

 private:
  enum Item : std::size_t { SPEED, CURRENT_TIME, ELAPSED, AVERAGE_SPEED, DISTANCE, ITEM_COUNT };
  static constexpr Item ITEMS[] = {SPEED, CURRENT_TIME, ELAPSED, AVERAGE_SPEED, DISTANCE};

  /// Where the upper left corners of a label and of its value stand.
  struct Place {
    POINT label;
    POINT value;
  };

  int HeightOf(const Ink& ink) const;
  const Ink& InkOf(Item item) const;
  int ItemHeight(Item item) const { return HeightOf(inks.label) + HeightOf(InkOf(item)); }
  void PlaceItem(Item item, int left, int top);
  void LayOutColumn(SIZE frame);
  void LayOutRows(SIZE frame);
  void LayOutGrid(int left, int columnWidth, int top);
  void DrawText(const Ink& ink, const char* text, POINT corner) const;

  Canvas& canvas;
  Inks inks;
  bool isSpeedLarge = true;
  std::array<Place, ITEM_COUNT> places = {};
  RECT rest = {};
};

}  // namespace ferolin
