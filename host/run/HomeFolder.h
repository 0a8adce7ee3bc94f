// The folder that stands for the handheld's program folder.
#pragma once

#include <string>

namespace host {

/// Holds the settings file, pictures, sounds, the font and tracks.
class HomeFolder {
 public:
  /// Uses the folder `asked`; if that is empty, the engine library's folder if it can be written
  /// to, else one in the user's data folder. Creates the folder and links pictures, sounds and font
  /// there. Throws HostError when the folder cannot be used.
  explicit HomeFolder(const std::string& asked);

  const std::string& GetPath() const { return path; }

  /// Folder of the engine library.
  const std::string& GetLibraryFolder() const { return libraryFolder; }

 private:
  std::string libraryFolder;
  std::string path;
};

}  // namespace host
