#include "modules/ProgramFolder.h"

#include <dlfcn.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "handheld.h"

namespace handheld {

namespace {

namespace fs = std::filesystem;

constexpr const char16_t* FOLDER_ON_DEVICE = u"\\Ferolin";
constexpr const char* DISPLAY_FONT = "lcd-u.ttf";
constexpr std::array SHARED_FILES = {"Pics", "Wav", DISPLAY_FONT};

/// Folder of this library.
fs::path OwnFolder() {
  Dl_info info = {};
  dladdr(reinterpret_cast<const void*>(&OwnFolder), &info);
  std::error_code error;
  return fs::canonical(info.dli_fname, error).parent_path();
}

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// Empty when there is none.
std::string DefaultFolder() {
  const std::string chosen = Environment("FEROLIN_FOLDER");
  return chosen.empty() ? DataFolder("libferolin") : chosen;
}

void Say(const std::string& library, const std::string& text) {
  std::fprintf(stderr, "%s: %s\n", library.c_str(), text.c_str());
}

}  // namespace

std::string InstalledLibraryFolder() {
  return (OwnFolder() / "ferolin").string();
}

std::string SharedFolder() {
  const fs::path own = OwnFolder();
  for (const fs::path& folder : {own, (own / FEROLIN_DATA_FROM_LIBRARIES).lexically_normal()}) {
    std::error_code error;
    if (fs::exists(folder / DISPLAY_FONT, error)) {
      return folder.string();
    }
  }
  return "";
}

std::string DataFolder(const std::string& program) {
  const std::string data = Environment("XDG_DATA_HOME");
  if (data.starts_with('/')) {
    return data + '/' + program;
  }
  const std::string user = Environment("HOME");
  return user.empty() ? "" : user + "/.local/share/" + program;
}

void SetProgramFolder(const std::string& path) {
  MapPath(FOLDER_ON_DEVICE, path);
  SetModuleDirectory(path);
  const std::string shared = SharedFolder();
  for (const char* name : SHARED_FILES) {
    std::error_code error;
    const bool isOwn = fs::exists(fs::path(path) / name, error) || shared.empty();
    MapPath(FOLDER_ON_DEVICE + WideFromUtf8(std::string("\\") + name),
            isOwn ? "" : shared + '/' + name);
  }
}

void ChooseProgramFolder(const std::string& library) {
  const std::string folder = DefaultFolder();
  if (folder.empty()) {
    Say(library, "settings are not kept: there is no folder for them; set FEROLIN_FOLDER");
    return;
  }
  std::error_code error;
  fs::create_directories(folder, error);
  if (access(folder.c_str(), W_OK | X_OK) != 0) {
    Say(library, "settings are not kept: cannot write to the folder " + folder);
  }
  SetProgramFolder(folder);
  if (SharedFolder().empty() && !fs::exists(fs::path(folder) / DISPLAY_FONT, error)) {
    Say(library, "views lack pictures and the display font: they are not installed in " +
                     (OwnFolder() / FEROLIN_DATA_FROM_LIBRARIES).lexically_normal().string());
  }
}

}  // namespace handheld
