// The read-outs laid out for a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "engine/Readout.h"

namespace host {

/// Lays the read-outs out in groups: in two columns when the terminal is wide enough, else in one.
/// All widths are columns of the terminal, so that Cyrillic lines up as Latin does.
class TerminalTable {
 public:
  /// Narrower terminals get one column.
  static constexpr std::size_t TWO_COLUMNS_FROM = 64;

  /// `source` stands in the title, such as "simulated drive".
  explicit TerminalTable(std::string source) : sourceName(std::move(source)) {}

  /// A full screen: title, read-outs, progress. Never more than `rows` lines of `columns`; what
  /// does not fit below is left out.
  std::vector<std::string> LayOut(const Update& update, std::size_t columns,
                                  std::size_t rows) const;

  /// The read-outs alone, all of them.
  static std::vector<std::string> LayOutReadouts(const Readouts& readouts, std::size_t columns);

  /// "[####....]  45 %" in that many columns (at least 12).
  static std::string Bar(double share, std::size_t columns);

 private:
  std::string sourceName;
};

}  // namespace host
