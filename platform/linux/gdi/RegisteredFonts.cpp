#include "gdi/RegisteredFonts.h"

#include <algorithm>
#include <atomic>
#include <mutex>

#include "core/LastError.h"
#include "files/Paths.h"
#include "files/UnreadableFiles.h"
#include "text/WideText.h"

namespace handheld {

namespace {

/// A font file and its number of registrations; removed with the last of them.
struct Registration {
  std::string path;
  int count;
};

struct Registry {
  std::mutex mutex;
  std::vector<Registration> registrations;
  std::atomic<std::uint64_t> version = 0;

  auto Find(const std::string& path) {
    return std::find_if(registrations.begin(), registrations.end(),
                        [&](const Registration& entry) { return entry.path == path; });
  }
};

Registry& TheRegistry() {
  static Registry& registry = *new Registry;
  return registry;
}

int Add(LPCWSTR fileName) {
  const Location location = Locate(fileName);
  if (!location.exists) {
    AddUnreadableFile(location.path);
    return Fail(location.GetMissingError(), 0);
  }
  Registry& registry = TheRegistry();
  const std::lock_guard lock(registry.mutex);
  const auto found = registry.Find(location.path);
  if (found == registry.registrations.end()) {
    registry.registrations.push_back({location.path, 1});
    ++registry.version;
  } else {
    ++found->count;
  }
  return 1;
}

BOOL Remove(LPCWSTR fileName) {
  const Location location = Locate(fileName);
  Registry& registry = TheRegistry();
  const std::lock_guard lock(registry.mutex);
  const auto found = registry.Find(location.path);
  if (found == registry.registrations.end()) {
    return Fail(ERROR_FILE_NOT_FOUND, FALSE);
  }
  if (--found->count == 0) {
    registry.registrations.erase(found);
    ++registry.version;
  }
  return TRUE;
}

}  // namespace

std::vector<std::string> RegisteredFonts() {
  Registry& registry = TheRegistry();
  const std::lock_guard lock(registry.mutex);
  std::vector<std::string> paths;
  for (const Registration& entry : registry.registrations) {
    paths.push_back(entry.path);
  }
  return paths;
}

std::uint64_t RegisteredFontsVersion() {
  return TheRegistry().version;
}

extern "C" {

int WINAPI AddFontResourceW(LPCWSTR fileName) {
  return Guarded<int>(0, [&] { return Add(fileName); });
}

BOOL WINAPI RemoveFontResourceW(LPCWSTR fileName) {
  return Guarded<BOOL>(FALSE, [&] { return Remove(fileName); });
}

}  // extern "C"

}  // namespace handheld
