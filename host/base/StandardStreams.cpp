#include "base/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace host {

namespace {

struct Stream {
  int number;
  /// Makes the stream's own direction fail.
  int mode;
};

constexpr std::array STREAMS = {Stream{STDIN_FILENO, O_WRONLY}, Stream{STDOUT_FILENO, O_RDONLY},
                                Stream{STDERR_FILENO, O_RDWR}};

}  // namespace

void ReserveStandardStreams() {
  for (const Stream& stream : STREAMS) {
    if (fcntl(stream.number, F_GETFD) < 0) {
      // The system gives the lowest free number: all lower ones are taken already.
      [[maybe_unused]] const int opened = open("/dev/null", stream.mode);
    }
  }
}

}  // namespace host
