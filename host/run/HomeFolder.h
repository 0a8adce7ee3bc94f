// The folder that plays the handheld's program folder.
#pragma once

#include <string>

namespace host {

/// Settings file, pictures, sounds, font and tracks lie in it.
class HomeFolder {
 public:
  /// Uses the folder that was asked for; without one (empty) that of the engine library if it can
  /// be written to, else one in the user's data folder. Creates it and links pictures, sounds and
  /// font there. Throws HostError when it cannot be used.
  explicit HomeFolder(const std::string& asked);

  const std::string& GetPath() const { return path; }

  /// Where the engine library lies.
  const std::string& GetLibraryFolder() const { return libraryFolder; }

 private:
  std::string libraryFolder;
  std::string path;
};

}  // namespace host
