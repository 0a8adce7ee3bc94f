#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

#include "widgets/path/PathReadouts.h"

namespace ferolin {

class Canvas;
class TextStyle;

/// Texts beside the path: at the right of a landscape frame, at the bottom of a portrait one. The
/// view's buttons lie there, too, so they never cover the path. Laid out anew for every frame from
/// the sizes of the texts.
class PathPanel {
 public:
  /// Borrowed.
  struct Ink {
    TextStyle& style;
    COLORREF color;
  };
  /// Inks of labels, values and the speed.
  struct Inks {
    Ink label;
    Ink value;
    Ink speed;
  };

  PathPanel(Canvas& target, const Inks& theInks);

  /// Part of the frame left to the path; empty when nothing is left.
  const RECT& GetRest() const { return rest; }

  void Draw(const PathReadouts& readouts) const;

 private:
  enum Item : std::size_t { SPEED, CURRENT_TIME, ELAPSED, AVERAGE_SPEED, DISTANCE, ITEM_COUNT };
  static constexpr Item ITEMS[] = {SPEED, CURRENT_TIME, ELAPSED, AVERAGE_SPEED, DISTANCE};

  /// Upper left corners of a label and of its value.
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
