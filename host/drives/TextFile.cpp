#include "drives/TextFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "base/HostError.h"

namespace host {

TextFile::TextFile(const std::string& path)
    : path(path), file(path == "-" ? stdout : std::fopen(path.c_str(), "we")) {
  if (!file) {
    Fail();
  }
}

void TextFile::Write(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), file.get()) != text.size()) {
    Fail();
  }
}

void TextFile::Finish() {
  const bool isWritten = std::fflush(file.get()) == 0;
  // Pipes and terminals cannot be synced.
  const bool isSynced = isWritten && (fsync(fileno(file.get())) == 0 || errno == EINVAL ||
                                      errno == ENOTSUP || errno == EROFS);
  if (!isSynced) {
    Fail();
  }
}

void TextFile::Fail() const {
  const std::string reason = std::strerror(errno);
  throw HostError("cannot write " + (path == "-" ? "standard output" : path) + ": " + reason);
}

}  // namespace host
