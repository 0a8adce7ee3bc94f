#include "run/WritableFolder.h"

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>

#include "base/FileDescriptor.h"
#include "base/HostError.h"

namespace host {

namespace {

namespace fs = std::filesystem;

/// Linux takes paths up to PATH_MAX; the longest of a file in the folder must fit.
bool HasRoomForNames(const fs::path& folder) {
  return folder.native().size() + sizeof '/' + NAME_MAX < PATH_MAX;
}

/// Why no file can be made in an existing folder, as an errno value; 0 when one can. A file system
/// that an error has made read-only tells so only when something is written.
int FindWriteError(const fs::path& folder) {
  if (access(folder.c_str(), W_OK | X_OK) != 0) {
    return errno;
  }
  const FileDescriptor file(open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
  return !file.IsOpen() && errno == EROFS ? EROFS : 0;
}

/// 0 when files can be written to the folder, else the error number.
int FindError(const fs::path& folder) {
  std::error_code error;
  if (!fs::is_directory(folder, error)) {
    return error ? error.value() : ENOTDIR;
  }
  if (!HasRoomForNames(folder)) {
    return ENAMETOOLONG;
  }
  return FindWriteError(folder);
}

}  // namespace

bool IsReadOnly(const fs::path& folder) {
  return FindWriteError(folder) != 0;
}

std::string DescribeWriteFailure(const fs::path& folder) {
  /// Less free space than the smallest file takes.
  constexpr std::uintmax_t FULL_DISK_BYTES = 4096;
  if (const int error = FindWriteError(folder); error != 0) {
    return "cannot write to " + folder.string() + ": " + std::strerror(error);
  }
  struct statvfs disk = {};
  if (statvfs(folder.c_str(), &disk) == 0 && disk.f_bavail * disk.f_frsize < FULL_DISK_BYTES) {
    return "the disk of " + folder.string() + " is full";
  }
  return "writing to " + folder.string() + " failed";
}

fs::path MakeWritableFolder(const std::string& path, const std::string& trouble) {
  std::error_code creation;
  fs::create_directories(path, creation);
  std::error_code error;
  fs::path folder = fs::canonical(path, error);
  const int number = creation ? creation.value() : error ? error.value() : FindError(folder);
  if (number != 0) {
    throw HostError(trouble + " " + path + ": " + std::strerror(number));
  }
  return folder;
}

}  // namespace host
