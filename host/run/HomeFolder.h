// The folder that stands for the handheld's program folder.
#pragma once

#include <string>

namespace host {

/// Holds the settings file, drives and tracks, and pictures, sounds or a display font that the user
/// prefers to the program's.
class HomeFolder {
 public:
  /// Uses the folder `asked`; if that is empty, "ferolin" in the user's data folder. Makes it where
  /// it is missing. Throws HostError when the folder cannot be used.
  explicit HomeFolder(const std::string& asked);

  const std::string& GetPath() const { return path; }

 private:
  std::string path;
};

}  // namespace host
