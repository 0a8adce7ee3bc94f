#include "files/UnreadableFiles.h"

#include <algorithm>
#include <mutex>

#include "handheld.h"

namespace handheld {

namespace {

struct Notes {
  std::mutex mutex;
  std::vector<std::string> paths;
};

Notes& TheNotes() {
  static Notes& notes = *new Notes;
  return notes;
}

}  // namespace

void AddUnreadableFile(const std::string& path) {
  Notes& notes = TheNotes();
  const std::lock_guard lock(notes.mutex);
  if (!path.empty() && std::ranges::find(notes.paths, path) == notes.paths.end()) {
    notes.paths.push_back(path);
  }
}

std::vector<std::string> UnreadableFiles() {
  Notes& notes = TheNotes();
  const std::lock_guard lock(notes.mutex);
  return notes.paths;
}

}  // namespace handheld
