#include "settings/IniStore.h"

#include <windows.h>

#include <algorithm>

#include "base/CodePage.h"
#include "base/File.h"
#include "base/Format.h"
#include "base/Number.h"

namespace ferolin {

namespace {

constexpr std::string_view BLANKS = " \t\n\r";
constexpr std::string_view SAVING_SUFFIX = ".new";

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(BLANKS);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

/// Reads lines into records. Comments are held until the record below them is read.
class Parser {
 public:
  explicit Parser(std::vector<IniRecord>& target) : records(target) {}

  void ParseLine(std::string_view line) {
    line = Trim(line);
    if (line.empty()) {
      return;
    }
    IniRecord record;
    if (line.front() == '#' || line.front() == ';') {
      if (line.find_first_of("[=") == std::string_view::npos) {
        comments.append(line).append("\n");
        return;
      }
      record.Commented = line.front();
      line = Trim(line.substr(1));
    }
    // A "[" anywhere makes the line a header, even inside a value.
    if (line.find('[') != std::string_view::npos) {
      ParseHeader(line, record);
    } else if (line.find('=') != std::string_view::npos) {
      ParseKey(line, record);
    }
    // Any other line becomes an empty record, unless comments are held for the next one.
    if (comments.empty()) {
      records.push_back(std::move(record));
    }
  }

 private:
  void ParseHeader(std::string_view line, IniRecord& record) {
    line.remove_prefix(line.find('[') + 1);
    section = line.substr(0, line.find(']'));
    record.Comments.swap(comments);
    record.Section = section;
  }

  void ParseKey(std::string_view line, IniRecord& record) {
    const std::size_t equals = line.find('=');
    record.Comments.swap(comments);
    record.Section = section;
    record.Key = line.substr(0, equals);
    record.Value = line.substr(equals + 1);
  }

  std::vector<IniRecord>& records;
  std::string section;
  std::string comments;
};

/// Puts the new file in place after a save that ended between removing the old file and renaming
/// the new one.
void RecoverInterruptedSave(const std::string& fileName) {
  MoveFileW(Widen(fileName + std::string(SAVING_SUFFIX)).c_str(), Widen(fileName).c_str());
}

std::string Print(const std::vector<IniRecord>& records) {
  std::string text;
  for (const IniRecord& record : records) {
    text += record.Comments;
    text += record.Commented;
    if (record.Key.empty()) {
      text += '[' + record.Section + ']';
    } else {
      text += record.Key + '=' + record.Value;
    }
    text += '\n';
  }
  return text;
}

bool WriteFlushed(const File& file, std::string_view text) {
  return file.Write(text) && file.Flush();
}

/// First record of that section and key in `records`; its end when there is none.
template <class Records>
auto FindKey(Records& records, std::string_view section, std::string_view key) {
  return std::ranges::find_if(records, [&](const IniRecord& record) {
    return record.Section == section && record.Key == key;
  });
}

}  // namespace

bool IniStore::Load(const std::string& fileName) {
  records.clear();
  RecoverInterruptedSave(fileName);
  const WideString path = Widen(fileName);
  if (const File file = File::ForReading(path); file.IsOpen()) {
    return Read(file);
  }
  return Create(fileName) && Read(File::ForReading(path));
}

bool IniStore::Read(const File& file) {
  std::string text;
  if (!file.IsOpen() || !file.ReadAll(text)) {
    return false;
  }
  Parser parser(records);
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size() - 1);
    parser.ParseLine(rest.substr(0, end + 1));
    rest.remove_prefix(end + 1);
  }
  return true;
}

bool IniStore::Create(const std::string& fileName) {
  return File::ForWriting(Widen(fileName)).IsOpen();
}

bool IniStore::Save(const std::string& fileName) const {
  const std::string text = Print(records);
  const WideString name = Widen(fileName);
  const WideString aside = Widen(fileName + std::string(SAVING_SUFFIX));
  bool written = false;
  {
    const File file = File::ForWriting(aside);
    if (!file.IsOpen()) {
      return WriteFlushed(File::ForWriting(name), text);
    }
    written = WriteFlushed(file, text);
  }
  if (!written) {
    DeleteFileW(aside.c_str());
    return false;
  }
  DeleteFileW(name.c_str());
  return MoveFileW(aside.c_str(), name.c_str());
}

std::string IniStore::GetValue(std::string_view key, std::string_view section) const {
  const auto record = FindKey(records, section, key);
  return record == records.end() ? std::string() : record->Value;
}

bool IniStore::HasValue(std::string_view key, std::string_view section) const {
  return FindKey(records, section, key) != records.end();
}

void IniStore::SetValue(std::string_view key, std::string_view value, std::string_view section) {
  const IniRecord added{"", ' ', std::string(section), std::string(key), std::string(value)};
  if (const auto record = FindKey(records, section, key); record != records.end()) {
    record->Value = value;
  } else if (const auto header = std::ranges::find(records, section, &IniRecord::Section);
             header != records.end()) {
    records.insert(header + 1, added);
  } else {
    records.push_back({"", ' ', std::string(section), "", ""});
    records.push_back(added);
  }
}

int IniStore::GetNumber(std::string_view key, std::string_view section, int missing) const {
  const std::string value = GetValue(key, section);
  return value.empty() ? missing : ParseInt(value.c_str());
}

void IniStore::SetNumber(std::string_view key, int value, std::string_view section) {
  SetValue(key, Format("%i", value), section);
}

}  // namespace ferolin
