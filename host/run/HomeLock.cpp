#include "run/HomeLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace host {

namespace {

// Sizes of the file.
constexpr off_t NO_WINDOW = 0;
constexpr off_t WINDOW = 1;

}  // namespace

HomeLock::HomeLock(const std::string& home)
    : file(open((home + "/ferolin.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)),
      isElsewhere(file.IsOpen() && flock(file.Get(), LOCK_EX | LOCK_NB) != 0 &&
                  errno == EWOULDBLOCK) {
  if (!isElsewhere) {
    SetSize(NO_WINDOW);
  }
}

bool HomeLock::CallWindow() {
  struct stat status = {};
  return fstat(file.Get(), &status) == 0 && status.st_size == WINDOW &&
         futimens(file.Get(), nullptr) == 0;
}

void HomeLock::NoteWindow() {
  SetSize(WINDOW);
}

bool HomeLock::TakeCall() {
  const timespec before = std::exchange(lastCall, GetTime());
  return before.tv_sec != lastCall.tv_sec || before.tv_nsec != lastCall.tv_nsec;
}

/// Changes the file's time, too.
void HomeLock::SetSize(off_t size) {
  if (ftruncate(file.Get(), size) == 0) {
    lastCall = GetTime();
  }
}

timespec HomeLock::GetTime() const {
  struct stat status = {};
  fstat(file.Get(), &status);
  return status.st_mtim;
}

}  // namespace host
