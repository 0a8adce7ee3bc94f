// Which files this process has open, and what each opening lets others do with them meanwhile.
#pragma once

#include <sys/stat.h>
#include <windows.h>

#include <map>
#include <mutex>
#include <utility>

namespace handheld {

/// Linux lets anybody open anything; the device does not.
class FileShares {
 public:
  static FileShares& Instance();

  using FileId = std::pair<dev_t, ino_t>;
  static FileId IdOf(const struct stat& status) { return {status.st_dev, status.st_ino}; }

  /// Notes an opening; false when it clashes with one that stands.
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
