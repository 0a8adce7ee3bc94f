// The read-outs laid out for a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "engine/Readout.h"

namespace host {

/// Lays the read-outs out in groups: in two columns when the terminal is wide enough, else in one.
/// Measures texts in columns of the terminal, not in bytes, so that Cyrillic lines up as well.
class TerminalTable {
 public:
  /// Narrower terminals get one column.
  static constexpr std::size_t TWO_COLUMNS_FROM = 64;

  /// `sourceName` is shown in the title, such as "simulated drive".
  explicit TerminalTable(std::string sourceName) : sourceName(std::move(sourceName)) {}

  /// A full screen of title (with the notice), read-outs and progress: at most `rows` lines of at most `columns`
  /// columns. Lines below are cut off.
  std::vector<std::string> LayOut(const Update& update, std::size_t columns,
                                  std::size_t rows) const;

  /// All read-outs, and nothing else.
  static std::vector<std::string> LayOutReadouts(const Readouts& readouts, std::size_t columns);

  /// Progress bar "[####....]  45 %". `columns` is at least 12.
  static std::string Bar(double share, std::size_t columns);

 private:
  static std::string LastLine(const Update& update, std::size_t columns, std::size_t width);

  std::string sourceName;
};

}  // namespace host
