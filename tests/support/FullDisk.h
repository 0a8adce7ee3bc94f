// A disk that fills up.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace testing_support {

/// While it lives, files of this process can grow to `bytes` and no further: a write that goes
/// beyond stores what fits, and the next one fails.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : oldHandler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &oldLimit);
    rlimit limit = oldLimit;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &oldLimit);
    std::signal(SIGXFSZ, oldHandler);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*oldHandler)(int);
  rlimit oldLimit = {};
};

}  // namespace testing_support
