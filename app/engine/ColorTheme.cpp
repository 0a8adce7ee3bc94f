#include "engine/ColorTheme.h"

#include "base/File.h"
#include "engine/LoadedEngine.h"

namespace app {

namespace {

using ferolin::File;

/// Start of a text up to the character, or all of it.
std::string_view UpTo(std::string_view text, char character) {
  std::size_t length = 0;
  while (length < text.size() && text[length++] != character) {
  }
  return text.substr(0, length);
}

/// Reads the lines of settings one by one.
struct LineReader {
  explicit LineReader(std::string_view text) : rest(text) {}

  /// False at the end.
  bool Next() {
    line = UpTo(rest, '\n');
    rest.remove_prefix(line.size());
    // Lines that are commented out count, as they do for the engine.
    key = line;
    while (key.starts_with(' ') || key.starts_with(';') || key.starts_with('#')) {
      key.remove_prefix(1);
    }
    if (key.starts_with('[')) {
      section = UpTo(key, ']');
    }
    key = UpTo(key, '=');
    return !line.empty();
  }

  std::string_view rest;
  /// With its end.
  std::string_view line;
  /// With its brackets.
  std::string_view section;
  /// With its "="; all of a line that has none.
  std::string_view key;
};

/// The line with the same section and key, or `wanted` itself.
std::string_view FindLine(std::string_view settings, const LineReader& wanted) {
  LineReader reader(settings);
  while (reader.Next()) {
    if (reader.section == wanted.section && reader.key == wanted.key) {
      return reader.line;
    }
  }
  return wanted.line;
}

bool Read(const WideString& path, std::string& text) {
  const File file = File::ForReading(path);
  return file.IsOpen() && file.ReadAll(text);
}

bool Write(const WideString& path, std::string_view text) {
  const File file = File::ForWriting(path);
  return file.Write(text) && file.Flush();
}

/// Written aside first: the engine puts such a file in place when there is no other.
void Replace(const WideString& path, std::string_view text) {
  const WideString aside = path + TEXT(".new");
  if (Write(aside, text) && DeleteFileW(path.c_str())) {
    MoveFileW(aside.c_str(), path.c_str());
  }
}

}  // namespace

WideString FindNewTheme(const LoadedEngine& engine) {
  const WideString chosen = engine.ReadSetting(theme_keys::CHOSEN);
  return chosen == engine.ReadSetting(theme_keys::TAKEN) ? WideString() : chosen;
}

std::string WithTheme(std::string_view settings, std::string_view theme) {
  std::string text;
  LineReader reader(settings);
  while (reader.Next()) {
    text += reader.key.ends_with('=') ? FindLine(theme, reader) : reader.line;
  }
  return text;
}

void TakeTheme(const WideString& folder, const WideString& name) {
  const WideString path = folder + TEXT("TachyMo.ini");
  std::string settings;
  std::string theme;
  if (Read(path, settings) && Read(folder + TEXT("themes\\") + name + TEXT(".ini"), theme)) {
    Replace(path, WithTheme(settings, theme));
  }
}

}  // namespace app
