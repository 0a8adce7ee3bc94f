#include "base/SafeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <utility>

#include "base/FileDescriptor.h"
#include "base/HostError.h"

namespace host {

namespace {

namespace fs = std::filesystem;

constexpr mode_t PRIVATE_MODE = S_IRUSR | S_IWUSR;

[[noreturn]] void Fail(const fs::path& path) {
  throw HostError("cannot write " + path.string() + ": " + std::strerror(errno));
}

/// The file that a chain of links leads to, whether it exists or not.
fs::path FollowLinks(fs::path path) {
  constexpr int MAX_LINKS = 40;
  std::error_code error;
  for (int i = 0; i < MAX_LINKS && fs::is_symlink(path, error); ++i) {
    path = path.parent_path() / fs::read_symlink(path, error);
  }
  return path;
}

bool WriteWhole(const FileDescriptor& file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t count = write(file.Get(), content.data(), content.size());
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count < 0) {
      return false;
    }
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return fsync(file.Get()) == 0;
}

/// Gives the new file owner, group and mode of the one that it replaces.
bool TakeOver(const FileDescriptor& file, const struct stat& replaced) {
  struct stat status;
  if (fstat(file.Get(), &status) != 0) {
    return false;
  }
  const bool hasSameOwner = status.st_uid == replaced.st_uid && status.st_gid == replaced.st_gid;
  return (hasSameOwner || fchown(file.Get(), replaced.st_uid, replaced.st_gid) == 0) &&
         fchmod(file.Get(), replaced.st_mode & 07777) == 0;
}

/// A new file beside the one to be replaced. It disappears unless it is put in place.
class Replacement {
 public:
  explicit Replacement(const fs::path& target)
      : name(target.parent_path() / ("." + target.filename().string() + ".XXXXXX")),
        file(mkostemp(name.data(), O_CLOEXEC)) {}
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  ~Replacement() {
    if (file.IsOpen() && !isInPlace) {
      unlink(name.c_str());
    }
  }

  const FileDescriptor& GetFile() const { return file; }

  bool PutInPlace(const fs::path& target) {
    isInPlace = rename(name.c_str(), target.c_str()) == 0;
    return isInPlace;
  }

 private:
  std::string name;
  FileDescriptor file;
  bool isInPlace = false;
};

/// Makes the rename last. Some file systems cannot sync a folder; theirs need no help.
void SyncFolder(const fs::path& folder) {
  const FileDescriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.IsOpen()) {
    fsync(opened.Get());
  }
}

/// False when nothing was done because no file of the same owner can be made in the folder.
bool ReplaceWhole(const fs::path& target, std::string_view content) {
  struct stat replaced;
  const bool exists = stat(target.c_str(), &replaced) == 0;
  Replacement replacement(target);
  if (!replacement.GetFile().IsOpen() || (exists && !TakeOver(replacement.GetFile(), replaced))) {
    return false;
  }
  if (!WriteWhole(replacement.GetFile(), content) || !replacement.PutInPlace(target)) {
    Fail(target);
  }
  SyncFolder(target.parent_path());
  return true;
}

void Overwrite(const fs::path& target, std::string_view content) {
  const FileDescriptor file(
      open(target.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, PRIVATE_MODE));
  if (!file.IsOpen() || !WriteWhole(file, content) ||
      ftruncate(file.Get(), static_cast<off_t>(content.size())) != 0 || fsync(file.Get()) != 0) {
    Fail(target);
  }
}

}  // namespace

void ReplaceFile(const fs::path& path, std::string_view content) {
  const fs::path target = FollowLinks(path);
  if (!ReplaceWhole(target, content)) {
    Overwrite(target, content);
  }
}

}  // namespace host
