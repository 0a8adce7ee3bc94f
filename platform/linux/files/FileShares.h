// Files that this process has open, with access and share mode of each opening.
#pragma once

#include <sys/stat.h>
#include <windows.h>

#include <map>
#include <mutex>
#include <utility>

namespace handheld {

/// Enforces share modes, which Linux does not know.
class FileShares {
 public:
  static FileShares& Instance();

  using FileId = std::pair<dev_t, ino_t>;
  static FileId IdOf(const struct stat& status) { return {status.st_dev, status.st_ino}; }

  /// Records an opening. False when it conflicts with an earlier one that is still open.
  bool Claim(FileId file, DWORD access, DWORD shareMode);
  void Release(FileId file, DWORD access, DWORD shareMode);
  bool IsOpen(FileId file) const;

 private:
  struct Opening {
    DWORD access;
    DWORD shareMode;
  };
  static bool Allows(DWORD shareMode, DWORD access);

  mutable std::mutex mutex;
  std::multimap<FileId, Opening> openings;
};

}  // namespace handheld
