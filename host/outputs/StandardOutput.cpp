#include "outputs/StandardOutput.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace host {

namespace {

/// Capacity of a pipe.
constexpr std::size_t BLOCK_SIZE = 65536;

}  // namespace

bool StandardOutput::Write(std::string_view text) {
  gathered += text;
  if (!gathers || gathered.size() >= BLOCK_SIZE) {
    Flush();
  }
  return !broken;
}

void StandardOutput::Flush() {
  WriteAtOnce(gathered);
  gathered.clear();
}

void StandardOutput::WriteAtOnce(std::string_view text) {
  while (!broken && !text.empty()) {
    const ssize_t written = write(STDOUT_FILENO, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN) {
      pollfd wait = {STDOUT_FILENO, POLLOUT, 0};
      poll(&wait, 1, -1);
    } else if (errno != EINTR) {
      broken = true;
      error = errno;
    }
  }
}

}  // namespace host
