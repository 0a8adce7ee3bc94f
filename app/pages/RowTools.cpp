#include "pages/RowTools.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/Format.h"
#include "pages/Session.h"

namespace app {

WideString Number(int value) {
  return ferolin::Widen(ferolin::Format("%i", value));
}

WideString WithUnit(int value, Word unit) {
  return Number(value) + TEXT(" ") + GetWord(unit);
}

/// The next multiple of `step` in that direction, within the range.
int Step(int value, int direction, int step, int lowest, int highest) {
  const int next =
      direction > 0 ? value / step * step + step : (value + step - 1) / step * step - step;
  return std::clamp(next, lowest, highest);
}

WideString DescribeReceiver(const Session& session, int) {
  return session.receiver.Describe();
}

Rows RowsOf(std::span<const Row> table) {
  return {table.begin(), table.end()};
}

Row WithArgument(const Row& row, int argument) {
  Row copy = row;
  copy.argument = argument;
  return copy;
}

}  // namespace app
