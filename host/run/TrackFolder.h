// The folder that track files are written to.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace host {

/// Remembers the files that were there, to tell afterwards what became of the track.
class TrackFolder {
 public:
  /// Creates the folder. Throws HostError when it cannot be created or written to.
  explicit TrackFolder(const std::string& path);

  /// Absolute path.
  const std::filesystem::path& GetPath() const { return folder; }

  /// What became of the track.
  struct Outcome {
    /// A text for the user for each new file, or the reason why there is none.
    std::vector<std::string> texts;
    /// Positions were not written, or not all of them.
    bool isLost = false;
  };

  /// Looks at the files once the engine has written the track. `hadPosition`: there was something
  /// to write.
  Outcome Check(bool hadPosition) const;

 private:
  std::set<std::filesystem::path> List() const;
  std::string FindCause() const;

  std::filesystem::path folder;
  std::set<std::filesystem::path> before;
};

}  // namespace host
