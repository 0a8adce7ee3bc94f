#include "settings/IniStore.h"

#include <windows.h>

#include <algorithm>

#include "base/CodePage.h"

namespace ferolin {

namespace {

constexpr std::string_view BLANKS = " \t\n\r";
constexpr std::string_view SAVING_SUFFIX = ".new";

std::vector<IniRecord>& Content() {
  static std::vector<IniRecord> content;
  return content;
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(BLANKS);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

/// A file that is closed when it goes out of scope.
class OpenFile {
 public:
  OpenFile(const std::string& fileName, DWORD access, DWORD disposition)
      : handle(CreateFileW(Widen(fileName).c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                           FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~OpenFile() {
    if (IsOpen()) {
      CloseHandle(handle);
    }
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool IsOpen() const { return handle != INVALID_HANDLE_VALUE; }

  bool ReadAll(std::string& text) const {
    char block[4096];
    DWORD count = 0;
    while (ReadFile(handle, block, sizeof block, &count, nullptr)) {
      if (count == 0) {
        return true;
      }
      text.append(block, count);
    }
    return false;
  }

  bool WriteAll(std::string_view text) const {
    DWORD written = 0;
    return WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
           written == text.size() && FlushFileBuffers(handle);
  }

 private:
  HANDLE handle;
};

/// Reads lines into records. Comments wait until the record below them comes.
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
    // Any other line becomes an empty record, unless comments wait for the next one.
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

bool ReadRecords(const OpenFile& file, std::vector<IniRecord>& records) {
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

/// A save that was cut off between removing the old file and naming the new one left the new one
/// whole.
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

std::vector<IniRecord>::iterator FindSection(std::string_view section) {
  return std::ranges::find(Content(), section, &IniRecord::Section);
}

std::vector<IniRecord>::iterator FindKey(std::string_view section, std::string_view key) {
  return std::ranges::find_if(Content(), [&](const IniRecord& record) {
    return record.Section == section && record.Key == key;
  });
}

}  // namespace

bool IniStore::Load(const std::string& fileName) {
  Content().clear();
  RecoverInterruptedSave(fileName);
  if (const OpenFile file(fileName, GENERIC_READ, OPEN_EXISTING); file.IsOpen()) {
    return ReadRecords(file, Content());
  }
  return Create(fileName) &&
         ReadRecords(OpenFile(fileName, GENERIC_READ, OPEN_EXISTING), Content());
}

bool IniStore::Create(const std::string& fileName) {
  return OpenFile(fileName, GENERIC_WRITE, CREATE_ALWAYS).IsOpen();
}

bool IniStore::Save(const std::string& fileName) const {
  const std::string text = Print(Content());
  const std::string aside = fileName + std::string(SAVING_SUFFIX);
  const WideString wideAside = Widen(aside);
  bool written = false;
  {
    const OpenFile file(aside, GENERIC_WRITE, CREATE_ALWAYS);
    if (!file.IsOpen()) {
      return OpenFile(fileName, GENERIC_WRITE, CREATE_ALWAYS).WriteAll(text);
    }
    written = file.WriteAll(text);
  }
  if (!written) {
    DeleteFileW(wideAside.c_str());
    return false;
  }
  const WideString wideName = Widen(fileName);
  DeleteFileW(wideName.c_str());
  return MoveFileW(wideAside.c_str(), wideName.c_str());
}

std::string IniStore::GetValue(std::string_view key, std::string_view section,
                               std::string_view) const {
  const auto record = FindKey(section, key);
  return record == Content().end() ? std::string() : record->Value;
}

bool IniStore::HasValue(std::string_view key, std::string_view section) const {
  return FindKey(section, key) != Content().end();
}

bool IniStore::SetValue(std::string_view key, std::string_view value, std::string_view section,
                        std::string_view) {
  std::vector<IniRecord>& content = Content();
  const IniRecord added{"", ' ', std::string(section), std::string(key), std::string(value)};
  if (const auto record = FindKey(section, key); record != content.end()) {
    record->Value = value;
  } else if (const auto header = FindSection(section); header != content.end()) {
    content.insert(header + 1, added);
  } else {
    content.push_back({"", ' ', std::string(section), "", ""});
    content.push_back(added);
  }
  return true;
}

const std::vector<IniRecord>& IniStore::GetRecords() const {
  return Content();
}

}  // namespace ferolin
