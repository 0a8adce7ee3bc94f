#include "run/HomeFolder.h"

#include <filesystem>

#include "base/HostError.h"
#include "handheld.h"
#include "run/WritableFolder.h"

namespace host {

namespace {

std::string Choose(const std::string& asked) {
  std::string folder = asked.empty() ? handheld::DataFolder("ferolin") : asked;
  if (folder.empty()) {
    throw HostError("there is no folder for settings: give one with --home");
  }
  return folder;
}

}  // namespace

HomeFolder::HomeFolder(const std::string& asked, ReadOnly readOnly) : path(Choose(asked)) {
  try {
    path = MakeWritableFolder(path, "cannot write to the folder").string();
  } catch (const HostError& error) {
    std::error_code none;
    const bool isThere = std::filesystem::is_directory(path, none);
    if (readOnly == ReadOnly::REFUSED || !isThere || !IsReadOnly(path)) {
      throw;
    }
    path = std::filesystem::canonical(path).string();
    problem = error.what();
  }
}

}  // namespace host
