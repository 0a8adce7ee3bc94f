#include "run/SettingsSpellings.h"

#include <strings.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "base/HostError.h"
#include "base/SafeFile.h"
#include "run/SettingsMerge.h"
#include "run/WritableFolder.h"

namespace host {

namespace {

namespace fs = std::filesystem;
using Paths = std::vector<fs::path>;

constexpr const char* SETTINGS_FILE = "TachyMo.ini";
constexpr const char* INTERRUPTED_SAVE = "TachyMo.ini.new";
/// A full file has 5 KB. The engine takes half a second for one of this size.
constexpr std::uintmax_t MAX_BYTES = 250'000;

Paths FindSpellings(const fs::path& home, const char* name) {
  Paths found;
  std::error_code error;
  for (fs::directory_iterator at(home, error), end; !error && at != end; at.increment(error)) {
    if (strcasecmp(at->path().filename().c_str(), name) == 0) {
      found.push_back(at->path());
    }
  }
  return found;
}

void Check(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    throw HostError(path.string() + " should be the settings file, but is " +
                    (fs::is_directory(status) ? "a folder" : "no file") + "; move it away");
  }
  const std::uintmax_t bytes = fs::exists(status) ? fs::file_size(path, error) : 0;
  if (!error && bytes > MAX_BYTES) {
    throw HostError(path.string() + " is too large for settings (" + std::to_string(bytes / 1000) +
                    " KB); move it away");
  }
}

fs::file_time_type TimeOf(const fs::path& path) {
  std::error_code error;
  const fs::file_time_type time = fs::last_write_time(path, error);
  return error ? fs::file_time_type::min() : time;
}

std::optional<std::string> Read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  return file.is_open() && !file.bad() ? std::optional(std::move(text)) : std::nullopt;
}

/// A free name for a file that is kept: "Tachymo.ini.old", "Tachymo.ini.old2".
fs::path NameToKeep(const fs::path& path) {
  std::error_code error;
  fs::path name = path.string() + ".old";
  for (int number = 2; fs::exists(fs::symlink_status(name, error)); ++number) {
    name = path.string() + ".old" + std::to_string(number);
  }
  return name;
}

/// A file that cannot be read is left alone.
void Unite(const fs::path& newest, const fs::path& older, Messages& messages) {
  const std::optional<std::string> settings = Read(newest);
  const std::optional<std::string> olderSettings = Read(older);
  if (!settings || !olderSettings) {
    return;
  }
  const std::string united = AddMissingSettings(*settings, *olderSettings);
  if (united != *settings) {
    ReplaceFile(newest, united);
  }
  const fs::path kept = NameToKeep(older);
  fs::rename(older, kept);
  messages.Say("there were two settings files: what only " + older.filename().string() +
               " had was added to " + newest.filename().string() + ", the rest is in " +
               kept.string());
}

/// A save of the engine itself ends with two steps: the old file goes, the new one gets its name.
void FinishInterruptedSave(const fs::path& home) {
  std::error_code error;
  for (const fs::path& path : FindSpellings(home, INTERRUPTED_SAVE)) {
    if (fs::is_regular_file(fs::symlink_status(path, error))) {
      fs::rename(path, home / SETTINGS_FILE, error);
    }
  }
}

}  // namespace

fs::path FindSettingsFile(const fs::path& home, Messages& messages) {
  if (FindSpellings(home, SETTINGS_FILE).empty()) {
    FinishInterruptedSave(home);
  }
  Paths spellings = FindSpellings(home, SETTINGS_FILE);
  if (spellings.empty()) {
    return home / SETTINGS_FILE;
  }
  std::ranges::for_each(spellings, Check);
  std::ranges::sort(spellings, std::ranges::greater(), TimeOf);
  const fs::path& newest = spellings.front();
  if (IsReadOnly(home)) {
    return newest;
  }
  for (auto older = spellings.begin() + 1; older != spellings.end(); ++older) {
    Unite(newest, *older, messages);
  }
  std::error_code error;
  const bool isTaken = fs::exists(fs::symlink_status(home / SETTINGS_FILE, error));
  if (!isTaken) {
    fs::rename(newest, home / SETTINGS_FILE, error);
  }
  return isTaken || error ? newest : home / SETTINGS_FILE;
}

}  // namespace host
