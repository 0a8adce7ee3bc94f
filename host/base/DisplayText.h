// UTF-8 text measured in the columns of a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

/// Columns that the text takes: 2 for wide East Asian characters, 0 for combining marks, 1 for all
/// others. Does not depend on the process's locale. A byte that is not UTF-8 takes one column.
std::size_t CountColumns(std::string_view text);

/// The text cut to at most `columns`; a cut text ends in "…".
std::string CutToColumns(std::string_view text, std::size_t columns);

/// The text cut to `columns` and filled up with blanks behind (PadRight) or in front (PadLeft).
std::string PadRight(std::string_view text, std::size_t columns);
std::string PadLeft(std::string_view text, std::size_t columns);

/// Number of bytes of the UTF-8 character at the start of `text` (not empty), or 0 when it is not
/// valid UTF-8.
std::size_t Utf8Length(std::string_view text);

}  // namespace host
