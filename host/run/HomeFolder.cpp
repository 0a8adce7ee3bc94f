#include "run/HomeFolder.h"

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>

#include "base/HostError.h"
#include "run/WritableFolder.h"

namespace host {

namespace {

namespace fs = std::filesystem;

constexpr const char* LIBRARY_FILE = "libferolin.so";
constexpr std::array SHARED_FILES = {"Pics", "Wav", "lcd-u.ttf"};

fs::path FindLibraryFolder() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
  for (const fs::path& folder :
       {program, program.parent_path() / "lib" / "ferolin", program.parent_path() / "lib"}) {
    if (fs::exists(folder / LIBRARY_FILE, error)) {
      return folder;
    }
  }
  throw HostError("cannot find " + std::string(LIBRARY_FILE) + " in " + program.string());
}

fs::path DataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && data[0] == '/') {
    return fs::path(data) / "ferolin";
  }
  const char* user = std::getenv("HOME");
  if (user == nullptr || user[0] == '\0') {
    throw HostError("there is no folder for settings: give one with --home");
  }
  return fs::path(user) / ".local" / "share" / "ferolin";
}

bool IsWritable(const fs::path& folder) {
  return access(folder.c_str(), W_OK | X_OK) == 0;
}

fs::path Choose(const std::string& asked, const fs::path& libraryFolder) {
  if (!asked.empty()) {
    return asked;
  }
  return IsWritable(libraryFolder) ? libraryFolder : DataFolder();
}

void LinkSharedFiles(const fs::path& from, const fs::path& to) {
  for (const char* name : SHARED_FILES) {
    std::error_code error;
    const bool isMissing = fs::exists(from / name, error) && !fs::exists(to / name, error);
    if (isMissing) {
      fs::remove(to / name, error);  // a broken link
      fs::create_symlink(from / name, to / name, error);
    }
  }
}

}  // namespace

HomeFolder::HomeFolder(const std::string& asked) {
  const fs::path library = FindLibraryFolder();
  const fs::path home = MakeWritableFolder(Choose(asked, library), "cannot write to the folder");
  LinkSharedFiles(library, home);
  libraryFolder = library.string();
  path = home.string();
}

}  // namespace host
