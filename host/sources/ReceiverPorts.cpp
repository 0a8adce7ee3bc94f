#include "sources/ReceiverPorts.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>

namespace host {

namespace {

namespace fs = std::filesystem;

constexpr const char* STABLE_NAMES = "serial/by-id";
constexpr std::array PREFIXES = {"ttyACM", "ttyUSB", "ttyAMA", "rfcomm"};

/// Sorted; empty without such a folder.
std::vector<fs::path> ListFolder(const fs::path& folder) {
  std::vector<fs::path> paths;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

}  // namespace

std::vector<std::string> FindReceiverPorts(const std::string& folder) {
  std::vector<fs::path> candidates = ListFolder(fs::path(folder) / STABLE_NAMES);
  const std::vector<fs::path> devices = ListFolder(folder);
  for (const char* prefix : PREFIXES) {
    std::copy_if(
        devices.begin(), devices.end(), std::back_inserter(candidates),
        [prefix](const fs::path& path) { return path.filename().string().starts_with(prefix); });
  }
  std::vector<std::string> ports;
  std::set<fs::path> known;
  for (const fs::path& candidate : candidates) {
    std::error_code error;
    const fs::path device = fs::canonical(candidate, error);
    if (!error && known.insert(device).second) {
      ports.push_back(candidate.string());
    }
  }
  return ports;
}

}  // namespace host
