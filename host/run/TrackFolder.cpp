#include "run/TrackFolder.h"

#include "run/WritableFolder.h"

namespace host {

namespace fs = std::filesystem;

TrackFolder::TrackFolder(const std::string& path)
    : folder(MakeWritableFolder(path, "cannot write tracks to")), before(List()) {}

std::set<fs::path> TrackFolder::List() const {
  std::set<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    if (at->path().extension() == ".kml") {
      files.insert(at->path());
    }
  }
  return files;
}

std::vector<std::string> TrackFolder::DescribeNewFiles() const {
  std::vector<std::string> texts;
  for (const fs::path& file : List()) {
    if (!before.contains(file)) {
      std::error_code error;
      const std::uintmax_t bytes = fs::file_size(file, error);
      texts.push_back(file.string() + " (" + std::to_string((bytes + 1023) / 1024) + " KB)");
    }
  }
  return texts;
}

}  // namespace host
