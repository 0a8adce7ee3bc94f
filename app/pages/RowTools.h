// What the tables of several pages need.
#pragma once

#include <span>

#include "pages/Row.h"

namespace app {

/// "60".
WideString Number(int value);
/// "60 km/h".
WideString WithUnit(int value, Word unit);

/// The next multiple of `step` in that direction, -1 or 1, within the range.
int Step(int value, int direction, int step, int lowest, int highest);

/// What is read from, for a row.
WideString DescribeReceiver(const Session& session, int);

Rows RowsOf(std::span<const Row> table);
Row WithArgument(const Row& row, int argument);

}  // namespace app
