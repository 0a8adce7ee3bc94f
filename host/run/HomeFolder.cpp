#include "run/HomeFolder.h"

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

HomeFolder::HomeFolder(const std::string& asked)
    : path(MakeWritableFolder(Choose(asked), "cannot write to the folder").string()) {}

}  // namespace host
