#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/IniRecord.h"

namespace ferolin {

class File;

/// The settings file in memory: all sections, keys and values as 8-bit text, in file order, with
/// the comments between them. Names are compared byte for byte. Used on the host's thread only.
class IniStore {
 public:
  /// Replaces the content with the parsed file. A file that cannot be opened is created empty and
  /// read again. Returns whether the file could be read; if not, the content is empty.
  bool Load(const std::string& fileName);

  /// Writes an empty file, truncating what was there. Returns whether it could.
  static bool Create(const std::string& fileName);

  /// Writes the content to the file: aside first, so that a full disk or a lost battery leaves the
  /// old file whole. Where no other file can be made in its folder it is written in place.
  bool Save(const std::string& fileName) const;

  /// Value of the first record with exactly this section and key; empty when there is none, so that
  /// a caller keeps its default.
  std::string GetValue(std::string_view key, std::string_view section) const;

  /// Whether a record with exactly this section and key exists.
  bool HasValue(std::string_view key, std::string_view section) const;

  /// Sets the first record with this section and key, adds the key right below its section's
  /// header, or adds both at the end. Nothing is written to disk.
  void SetValue(std::string_view key, std::string_view value, std::string_view section);

  /// The value as a whole number; `missing` when it is missing or empty.
  int GetNumber(std::string_view key, std::string_view section, int missing) const;
  void SetNumber(std::string_view key, int value, std::string_view section);

  /// The content, in file order. The reference holds until the next change.
  const std::vector<IniRecord>& GetRecords() const { return records; }

 private:
  bool Read(const File& file);

  std::vector<IniRecord> records;
};

}  // namespace ferolin
