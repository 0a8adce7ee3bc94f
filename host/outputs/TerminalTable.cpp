#include "outputs/TerminalTable.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/DisplayText.h"

namespace host {

namespace {

constexpr std::size_t GAP = 4;
constexpr std::size_t WIDEST_CELL = 44;
constexpr std::size_t LONGEST_BAR = 60;
/// An empty line between two groups.
constexpr int SPACE = -1;

// Places in the engine's order, sorted for the eye.
constexpr std::array LEFT = {0,     1,  2,  24, SPACE, 9,     10, 8,  6, 7,
                             SPACE, 17, 18, 19, 20,    SPACE, 21, 22, 23};
constexpr std::array RIGHT = {11, 27, 12, 28,    29, 13, 30, 31, 32, 14,
                              33, 15, 16, SPACE, 3,  4,  25, 5,  26};

std::string Cell(const Readouts& readouts, int place, std::size_t columns) {
  if (place == SPACE || static_cast<std::size_t>(place) >= readouts.size()) {
    return PadRight("", columns);
  }
  const Readout& each = readouts[static_cast<std::size_t>(place)];
  const std::string value = CutToColumns(each.value, columns);
  const std::size_t room = columns - CountColumns(value);
  return PadRight(CutToColumns(each.name, room > 0 ? room - 1 : 0), room) + value;
}

std::vector<std::string> OneColumn(const Readouts& readouts, std::size_t columns) {
  std::vector<std::string> lines;
  for (const std::span<const int> side :
       {std::span<const int>(LEFT), std::span<const int>(RIGHT)}) {
    for (const int place : side) {
      if (place != SPACE) {
        lines.push_back(Cell(readouts, place, std::min(columns, WIDEST_CELL)));
      }
    }
  }
  return lines;
}

std::vector<std::string> TwoColumns(const Readouts& readouts, std::size_t columns) {
  static_assert(LEFT.size() == RIGHT.size());
  const std::size_t cell = std::min((columns - GAP) / 2, WIDEST_CELL);
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < LEFT.size(); ++i) {
    lines.push_back(Cell(readouts, LEFT[i], cell) + std::string(GAP, ' ') +
                    Cell(readouts, RIGHT[i], cell));
  }
  return lines;
}

/// `left` and `right` at the two ends of a line; `right` gives way.
std::string Ends(const std::string& left, const std::string& right, std::size_t columns) {
  const std::size_t leftColumns = CountColumns(left);
  if (leftColumns + 2 + CountColumns(right) > columns) {
    return PadRight(left, columns);
  }
  return left + PadLeft(right, columns - leftColumns);
}

}  // namespace

std::vector<std::string> TerminalTable::LayOutReadouts(const Readouts& readouts,
                                                       std::size_t columns) {
  return columns < TWO_COLUMNS_FROM ? OneColumn(readouts, columns) : TwoColumns(readouts, columns);
}

std::string TerminalTable::Bar(double share, std::size_t columns) {
  constexpr std::size_t AROUND = 8;  // brackets, blank, percentage
  const double inside = std::clamp(share, 0.0, 1.0);
  const std::size_t length = columns - AROUND;
  const auto filled = static_cast<std::size_t>(inside * static_cast<double>(length));
  const std::string percent = std::to_string(static_cast<int>(inside * 100)) + " %";
  std::string bar(1, '[');
  bar.append(filled, '#');
  bar.append(length - filled, '.');
  bar += ']';
  return bar + PadLeft(percent, AROUND - 2);
}

std::vector<std::string> TerminalTable::LayOut(const Update& update, std::size_t columns,
                                               std::size_t rows) const {
  std::vector<std::string> body = LayOutReadouts(update.readouts, columns);
  const std::size_t widest = columns < TWO_COLUMNS_FROM
                                 ? std::min(columns, WIDEST_CELL)
                                 : 2 * std::min((columns - GAP) / 2, WIDEST_CELL) + GAP;
  std::vector<std::string> lines = {
      Ends("Ferolin  " + sourceName, "update " + std::to_string(update.number), widest), ""};
  lines.insert(lines.end(), body.begin(), body.end());
  lines.emplace_back();
  const std::string hint = "Ctrl-C ends";
  if (update.progress && columns > hint.size() + GAP + 12) {
    const std::size_t bar = std::min(columns - hint.size() - GAP, LONGEST_BAR);
    lines.push_back(Ends(Bar(*update.progress, bar), hint, widest));
  } else {
    lines.push_back(CutToColumns(hint, columns));
  }
  if (lines.size() > rows) {
    lines.erase(lines.begin() + 1);
  }
  if (lines.size() > rows) {
    lines.resize(rows);
  }
  return lines;
}

}  // namespace host
