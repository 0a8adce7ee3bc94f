// Where the rows of a page lie and how high they are.
#pragma once

#include <windows.h>

#include <vector>

#include "pages/Row.h"

namespace app {

class Painter;
class Session;

/// Rectangles are those of the page before it is scrolled, the first row at its top.
class RowLayout {
 public:
  /// Places the rows for the painter's size: below each other, read-outs on a wide screen in two
  /// columns.
  void Place(const Rows& rows, const Session& session, Painter& painter);

  const RECT& GetRect(int row) const { return rects[static_cast<std::size_t>(row)]; }
  /// Height of all rows together.
  int GetHeight() const { return height; }
  /// -1 when no row lies there.
  int FindRow(POINT point) const;

 private:
  std::vector<RECT> rects;
  int height = 0;
};

/// Places within a row, all in units but the rectangles.
namespace row_parts {

constexpr int HEIGHT = 48;
constexpr int GAP = 12;
constexpr int HEADING = 40;
constexpr int MARGIN = 10;
constexpr int ICON = 24;
constexpr int CAPTION = 12;  ///< font of the small line over or under the other
constexpr int CAPTION_SMALLEST = 10;
constexpr int TEXT = 17;  ///< font of labels and values
constexpr int TEXT_SMALLEST = 11;
constexpr int LINE_SPACING = 5;  ///< between the lines of a long read-out
constexpr int SWITCH_WIDTH = 48;
constexpr int SWITCH_HEIGHT = 26;

/// Whether there is room for the value beside the label.
bool IsWide(const Painter& painter);

/// Buttons of a stepper in a row at that place: -1 lowers, 1 raises.
RECT GetStepButton(const Painter& painter, const RECT& row, int direction);

/// Lines of a read-out's text, which has the row's width.
std::vector<ferolin::WideString> BreakText(Painter& painter, const ferolin::WideString& text,
                                           const RECT& row);

}  // namespace row_parts

}  // namespace app
