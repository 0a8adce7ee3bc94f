// UTF-8 text measured in the columns of a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

/// Width in columns: 2 for a wide East Asian character, 0 for a combining mark, 1 for any other
/// character and for a byte that is not UTF-8. Does not depend on the process's locale.
std::size_t CountColumns(std::string_view text);

/// Cuts the text to at most `columns`; a cut text ends in "…".
std::string CutToColumns(std::string_view text, std::size_t columns);

/// Cuts the text to `columns`, or fills it up with blanks behind (PadRight) or before it (PadLeft).
std::string PadRight(std::string_view text, std::size_t columns);
std::string PadLeft(std::string_view text, std::size_t columns);

/// Bytes of the UTF-8 character at the start of `text`, which is not empty; 0 when the text does
/// not start with valid UTF-8.
std::size_t Utf8Length(std::string_view text);

}  // namespace host
