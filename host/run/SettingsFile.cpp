#include "run/SettingsFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <utility>

#include "base/HostError.h"
#include "base/SafeFile.h"
#include "engine/ColorTheme.h"
#include "handheld.h"
#include "run/SettingsMerge.h"
#include "run/SettingsSpellings.h"
#include "run/WritableFolder.h"

namespace host {

namespace {

namespace fs = std::filesystem;

constexpr const char* FOLDER_NAME = ".ferolin-settings";
constexpr const char* SAVED_NAME = "TachyMo.ini";
constexpr const char16_t* DEVICE_NAME = u"\\TachyMo.ini";
constexpr const char16_t* SAVING_SUFFIX = u".new";

fs::path ChooseFolder(const HomeFolder& home) {
  return home.IsWritable() ? fs::path(home.GetPath()) / FOLDER_NAME
                           : fs::temp_directory_path() / (FOLDER_NAME + std::to_string(getpid()));
}

bool MayAccess(const fs::path& path, int mode) {
  return euidaccess(path.c_str(), mode) == 0 || errno == ENOENT;
}

}  // namespace

SettingsFile::SettingsFile(const HomeFolder& home, const std::u16string& deviceHome,
                           Messages& messages)
    : messages(messages),
      file(FindSettingsFile(home.GetPath(), messages)),
      folder(ChooseFolder(home)),
      saved(folder / SAVED_NAME),
      deviceFile(deviceHome + DEVICE_NAME),
      canKeep(home.IsWritable()) {
  Check();
  PrepareSaving();
  handheld::MapPath(deviceFile, (IsThere() ? file : saved).string());
  // The engine saves under this name first. One that lies in the home folder is not its own.
  handheld::MapPath(deviceFile + SAVING_SUFFIX, saved.string() + ".new");
}

SettingsFile::~SettingsFile() {
  try {
    Keep();
  } catch (const std::exception& error) {
    messages.Say(error.what());
  }
}

bool SettingsFile::IsThere() const {
  std::error_code error;
  return canRead && fs::exists(file, error);
}

/// The engine reads them from the folder aside: the user's file changes when the run ends.
void SettingsFile::Override(const std::string& theme) {
  std::string own;
  if (IsThere()) {
    std::ifstream stream(file, std::ios::binary);
    own.assign(std::istreambuf_iterator<char>(stream), {});
  }
  std::ofstream stream(saved, std::ios::binary);
  stream << AddMissingSettings(app::WithTheme(own, theme), theme);
  stream.close();
  if (!stream) {
    throw HostError("cannot write " + saved.string() + ": " + std::strerror(errno));
  }
  handheld::MapPath(deviceFile, saved.string());
}

void SettingsFile::Check() {
  canRead = MayAccess(file, R_OK);
  if (!canRead) {
    GiveUp("the settings in " + file.string() + " cannot be read: " + std::strerror(errno));
  } else if (canKeep && !MayAccess(file, W_OK)) {
    GiveUp("the settings in " + file.string() + " cannot be written: " + std::strerror(errno));
  }
}

/// The folder may be left from a run that was cut off, or be a link that somebody planted.
void SettingsFile::PrepareSaving() {
  std::error_code error;
  fs::remove_all(folder, error);
  if (mkdir(folder.c_str(), S_IRWXU) != 0 && canKeep) {
    GiveUp("cannot make the folder " + folder.string() + ": " + std::strerror(errno));
  }
}

void SettingsFile::GiveUp(const std::string& trouble) {
  canKeep = false;
  messages.Say(trouble + "; settings are not kept");
}

void SettingsFile::OnEngineLoaded() {
  isLoaded = true;
  handheld::MapPath(deviceFile, saved.string());
  std::error_code error;
  fs::remove(saved, error);
}

void SettingsFile::Keep(const std::string& theme) {
  if (!std::exchange(isLoaded, false)) {
    return;
  }
  std::ifstream stream(saved, std::ios::binary);
  const std::string settings{std::istreambuf_iterator<char>(stream), {}};
  const bool isSaved = stream.is_open() && !stream.bad();
  stream.close();
  std::error_code error;
  fs::remove_all(folder, error);
  if (!canKeep) {
    throw HostError("settings were not kept");
  }
  if (!isSaved) {
    throw HostError("settings were not kept: " + DescribeWriteFailure(folder.parent_path()));
  }
  ReplaceFile(file, AddMissingSettings(app::WithTheme(settings, theme), theme));
}

}  // namespace host
