// Device paths that stand for Linux files and folders.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace handheld {

/// Translates between device paths and Linux paths. A path that is not mapped, and lies in no
/// mapped folder, is spelled with the other kind of slash. Any thread may call.
class PathMap {
 public:
  static PathMap& Instance();

  /// Letter case of `devicePath` does not matter. An empty `linuxPath` removes the mapping.
  void Set(const std::u16string& devicePath, const std::string& linuxPath);

  std::string ToLinux(const std::u16string& devicePath) const;
  std::u16string ToDevice(const std::string& linuxPath) const;

 private:
  struct Mapping {
    std::u16string devicePath;
    std::string linuxPath;
  };

  mutable std::mutex mutex;
  std::vector<Mapping> mappings;
};

}  // namespace handheld
