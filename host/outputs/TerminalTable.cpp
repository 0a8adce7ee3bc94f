#include "outputs/TerminalTable.h"

#include <ferolin.h>

#include <algorithm>
#include <array>

#include "base/DisplayText.h"
#include "outputs/ShownReadouts.h"

namespace host {

namespace {

constexpr std::size_t COLUMN_GAP = 4;
constexpr std::size_t WIDEST_CELL = 44;
constexpr std::size_t SHORTEST_BAR = 12;
constexpr std::size_t LONGEST_BAR = 60;
/// Stands for an empty line between two groups.
constexpr int SPACE = -1;
constexpr std::size_t LINES = 20;

// Sensors in groups.
constexpr std::array<int, LINES> LEFT = {
    FEROLIN_SENSOR_GPS_STATUS,
    FEROLIN_SENSOR_SATELLITES_USED,
    FEROLIN_SENSOR_CURRENT_TIME,
    FEROLIN_SENSOR_BATTERY_STATUS,
    SPACE,
    FEROLIN_SENSOR_SPEED,
    FEROLIN_SENSOR_MAX_SPEED,
    FEROLIN_SENSOR_AVERAGE_SPEED,
    ShownReadouts::MOVING_AVERAGE,
    FEROLIN_SENSOR_DISTANCE,
    FEROLIN_SENSOR_ELAPSED,
    ShownReadouts::STOPPED,
    SPACE,
    FEROLIN_SENSOR_LATITUDE,
    FEROLIN_SENSOR_LONGITUDE,
    FEROLIN_SENSOR_ALTITUDE,
    FEROLIN_SENSOR_AZIMUTH,
    FEROLIN_SENSOR_HDOP,
    FEROLIN_SENSOR_VDOP,
    FEROLIN_SENSOR_PDOP,
};
constexpr std::array<int, LINES> RIGHT = {
    FEROLIN_SENSOR_ACCEL_10,      FEROLIN_SENSOR_ACCEL_20,
    FEROLIN_SENSOR_ACCEL_30,      FEROLIN_SENSOR_ACCEL_40,
    FEROLIN_SENSOR_ACCEL_50,      FEROLIN_SENSOR_ACCEL_60,
    FEROLIN_SENSOR_ACCEL_70,      FEROLIN_SENSOR_ACCEL_80,
    FEROLIN_SENSOR_ACCEL_90,      FEROLIN_SENSOR_ACCEL_100,
    FEROLIN_SENSOR_ACCEL_120,     FEROLIN_SENSOR_ACCEL_150,
    FEROLIN_SENSOR_ACCEL_200,     SPACE,
    FEROLIN_SENSOR_FASTEST_100,   FEROLIN_SENSOR_FASTEST_402,
    FEROLIN_SENSOR_FASTEST_500,   FEROLIN_SENSOR_FASTEST_1000,
    FEROLIN_SENSOR_FASTEST_10000, SPACE,
};

bool HasTwoColumns(std::size_t columns) {
  return columns >= TerminalTable::TWO_COLUMNS_FROM;
}

std::size_t WidthOfCell(std::size_t columns) {
  return std::min(HasTwoColumns(columns) ? (columns - COLUMN_GAP) / 2 : columns, WIDEST_CELL);
}

std::size_t WidthOfReadouts(std::size_t columns) {
  return HasTwoColumns(columns) ? 2 * WidthOfCell(columns) + COLUMN_GAP : WidthOfCell(columns);
}

std::string Cell(const Readouts& readouts, int sensor, std::size_t columns) {
  if (sensor == SPACE || static_cast<std::size_t>(sensor) >= readouts.size()) {
    return PadRight("", columns);
  }
  const Readout& each = readouts[static_cast<std::size_t>(sensor)];
  const std::string value = CutToColumns(each.value, columns);
  const std::size_t room = columns - CountColumns(value);
  return PadRight(CutToColumns(each.name, room > 0 ? room - 1 : 0), room) + value;
}

std::vector<std::string> OneColumn(const Readouts& readouts, std::size_t columns) {
  std::vector<std::string> lines;
  for (const auto& side : {LEFT, RIGHT}) {
    for (const int sensor : side) {
      if (sensor != SPACE) {
        lines.push_back(Cell(readouts, sensor, WidthOfCell(columns)));
      }
    }
  }
  return lines;
}

std::vector<std::string> TwoColumns(const Readouts& readouts, std::size_t columns) {
  const std::size_t cell = WidthOfCell(columns);
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < LINES; ++i) {
    lines.push_back(Cell(readouts, LEFT[i], cell) + std::string(COLUMN_GAP, ' ') +
                    Cell(readouts, RIGHT[i], cell));
  }
  return lines;
}

/// A line with `left` and `right` at its ends; without `right` when there is no room for both.
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
  return HasTwoColumns(columns) ? TwoColumns(readouts, columns) : OneColumn(readouts, columns);
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
  const std::size_t width = WidthOfReadouts(columns);
  std::vector<std::string> lines = LayOutReadouts(update.readouts, columns);
  const std::string number = "update " + std::to_string(update.number);
  const std::string notice = update.notice.empty() ? "" : ": " + update.notice;
  const std::string title = CutToColumns("Ferolin  " + sourceName + notice, columns);
  lines.insert(lines.begin(), {Ends(title, number, width), ""});
  lines.emplace_back();
  lines.push_back(LastLine(update, columns, width));
  if (lines.size() > rows) {
    lines.erase(lines.begin() + 1);
  }
  if (lines.size() > rows) {
    lines.resize(rows);
  }
  return lines;
}

/// The progress with the time left, if they are known and there is room, and how to end the program.
std::string TerminalTable::LastLine(const Update& update, std::size_t columns, std::size_t width) {
  const std::string hint = "Ctrl-C ends";
  if (!update.progress || columns <= hint.size() + COLUMN_GAP + SHORTEST_BAR) {
    return CutToColumns(hint, columns);
  }
  const std::size_t length = std::min(columns - hint.size() - COLUMN_GAP, LONGEST_BAR);
  const std::size_t timeColumns = update.timeLeft.empty() ? 0 : 2 + CountColumns(update.timeLeft);
  if (timeColumns == 0 || length < SHORTEST_BAR + timeColumns) {
    return Ends(Bar(*update.progress, length), hint, width);
  }
  return Ends(Bar(*update.progress, length - timeColumns) + "  " + update.timeLeft, hint, width);
}

}  // namespace host
