#include "sources/FileSource.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "base/HostError.h"

namespace host {

namespace {

constexpr std::size_t FILE_BLOCK_BYTES = 65536;

/// Not open, with errno set, when that fails.
FileDescriptor Open(const std::string& path) {
  if (path == "-") {
    const int mode = fcntl(STDIN_FILENO, F_GETFL) & O_ACCMODE;
    if (mode == O_WRONLY) {
      errno = EBADF;
      return {};
    }
    return FileDescriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0));
  }
  return FileDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

}  // namespace

FileSource::FileSource(const std::string& path)
    : file(Open(path)), stopEvent(eventfd(0, EFD_CLOEXEC)) {
  struct stat status = {};
  if (!file.IsOpen() || fstat(file.Get(), &status) != 0) {
    const std::string name = path == "-" ? "standard input" : path;
    throw HostError("cannot read " + name + ": " + std::strerror(errno));
  }
  if (S_ISDIR(status.st_mode)) {
    throw HostError("cannot read " + path + ": it is a folder");
  }
  if (S_ISREG(status.st_mode)) {
    size = static_cast<std::uint64_t>(status.st_size);
  }
}

bool FileSource::Wait() {
  std::array<pollfd, 2> waits = {{{file.Get(), POLLIN, 0}, {stopEvent.Get(), POLLIN, 0}}};
  while (poll(waits.data(), waits.size(), -1) < 0) {
    if (errno != EINTR) {
      return false;
    }
  }
  return waits[1].revents == 0;
}

std::optional<std::string> FileSource::Read() {
  std::string bytes(FILE_BLOCK_BYTES, '\0');
  ssize_t count = -1;
  do {
    if (!Wait()) {
      return std::nullopt;
    }
    count = read(file.Get(), bytes.data(), bytes.size());
  } while (count < 0 && errno == EINTR);
  if (count <= 0) {
    return std::nullopt;
  }
  bytes.resize(static_cast<std::size_t>(count));
  return bytes;
}

void FileSource::Stop() {
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = write(stopEvent.Get(), &one, sizeof one);
}

}  // namespace host
