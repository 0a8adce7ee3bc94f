#include "files/PathMap.h"

#include <algorithm>

#include "handheld.h"
#include "text/WideText.h"

namespace handheld {

namespace {

std::string WithSlashes(const std::u16string& devicePath) {
  std::string path = Utf8FromWide(devicePath);
  std::ranges::replace(path, '\\', '/');
  return path;
}

std::u16string WithBackslashes(const std::string& linuxPath) {
  std::u16string path = WideFromUtf8(linuxPath);
  std::ranges::replace(path, u'/', u'\\');
  return path;
}

/// Whether `start` is the whole path or a folder of it.
template <class Text>
bool LeadsTo(const Text& start, const Text& path, typename Text::value_type slash) {
  return path.starts_with(start) && (path.size() == start.size() || path[start.size()] == slash);
}

}  // namespace

PathMap& PathMap::Instance() {
  static PathMap& map = *new PathMap;
  return map;
}

void PathMap::Set(const std::u16string& devicePath, const std::string& linuxPath) {
  const std::u16string folded = FoldCase(devicePath);
  const std::lock_guard lock(mutex);
  std::erase_if(mappings, [&](const Mapping& each) { return FoldCase(each.devicePath) == folded; });
  if (!linuxPath.empty()) {
    mappings.push_back({devicePath, linuxPath});
  }
}

std::string PathMap::ToLinux(const std::u16string& devicePath) const {
  const std::u16string folded = FoldCase(devicePath);
  const std::lock_guard lock(mutex);
  const Mapping* closest = nullptr;
  for (const Mapping& each : mappings) {
    if (LeadsTo(FoldCase(each.devicePath), folded, u'\\') &&
        (closest == nullptr || each.devicePath.size() > closest->devicePath.size())) {
      closest = &each;
    }
  }
  return closest == nullptr
             ? WithSlashes(devicePath)
             : closest->linuxPath + WithSlashes(devicePath.substr(closest->devicePath.size()));
}

std::u16string PathMap::ToDevice(const std::string& linuxPath) const {
  const std::lock_guard lock(mutex);
  const Mapping* closest = nullptr;
  for (const Mapping& each : mappings) {
    if (LeadsTo(each.linuxPath, linuxPath, '/') &&
        (closest == nullptr || each.linuxPath.size() > closest->linuxPath.size())) {
      closest = &each;
    }
  }
  return closest == nullptr
             ? WithBackslashes(linuxPath)
             : closest->devicePath + WithBackslashes(linuxPath.substr(closest->linuxPath.size()));
}

}  // namespace handheld
