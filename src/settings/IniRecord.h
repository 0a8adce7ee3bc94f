#pragma once

#include <string>

namespace ferolin {

/// One line of the settings file that is neither blank nor a pure comment: a section header or a
/// key with its value.
struct IniRecord {
  /// The comment lines that stood directly above, each with its leading '#' or ';' and followed by
  /// a line feed.
  std::string Comments;
  /// A space for an active line, or the '#' or ';' with which a commented-out line began.
  char Commented = ' ';
  /// Name of the header, or of the section that the key belongs to (empty for keys above the first
  /// header).
  std::string Section;
  /// Empty in a header record.
  std::string Key;
  std::string Value;

  bool operator==(const IniRecord&) const = default;
};

}  // namespace ferolin
