#include "run/HomeLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "base/HostError.h"

namespace host {

HomeLock::HomeLock(const std::string& home)
    : file(
          open((home + "/ferolin.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)) {
  if (file.IsOpen() && flock(file.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    throw HostError("another ferolin-host uses the folder " + home +
                    ": end it first, or choose another folder with --home");
  }
}

}  // namespace host
