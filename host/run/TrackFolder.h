// The folder that track files are written to.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace host {

/// Remembers the files that were there, to tell new ones afterwards.
class TrackFolder {
 public:
  /// Creates the folder. Throws HostError when it cannot be created or written to.
  explicit TrackFolder(const std::string& path);

  /// Absolute path.
  const std::filesystem::path& GetPath() const { return folder; }

  /// New files with their sizes: "/tracks/Track0001.kml (12 KB)".
  std::vector<std::string> DescribeNewFiles() const;

 private:
  std::set<std::filesystem::path> List() const;

  std::filesystem::path folder;
  std::set<std::filesystem::path> before;
};

}  // namespace host
