#include "serial/SerialLine.h"

#include <asm/termbits.h>
#include <sys/ioctl.h>

#include <cerrno>

namespace handheld::SerialLine {

bool MakeRaw(int descriptor) {
  termios2 settings;
  if (ioctl(descriptor, TCGETS2, &settings) != 0) {
    return errno == ENOTTY || errno == EINVAL;
  }
  settings.c_iflag = 0;
  settings.c_oflag = 0;
  settings.c_lflag = 0;
  settings.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | CSTOPB | CRTSCTS);
  settings.c_cflag |= CS8 | CREAD | CLOCAL;
  // With VMIN 0 an idle line could not be told from a hang-up.
  settings.c_cc[VMIN] = 1;
  settings.c_cc[VTIME] = 0;
  return ioctl(descriptor, TCSETS2, &settings) == 0;
}

std::optional<std::uint32_t> GetBaud(int descriptor) {
  termios2 settings;
  if (ioctl(descriptor, TCGETS2, &settings) != 0) {
    return std::nullopt;
  }
  return settings.c_ospeed;
}

bool SetBaud(int descriptor, std::uint32_t baud) {
  termios2 settings;
  if (ioctl(descriptor, TCGETS2, &settings) != 0) {
    return false;
  }
  settings.c_cflag &= ~static_cast<tcflag_t>(CBAUD | (CBAUD << IBSHIFT));
  settings.c_cflag |= BOTHER | (BOTHER << IBSHIFT);
  settings.c_ispeed = baud;
  settings.c_ospeed = baud;
  return ioctl(descriptor, TCSETS2, &settings) == 0;
}

void SetExclusive(int descriptor, bool exclusive) {
  ioctl(descriptor, exclusive ? TIOCEXCL : TIOCNXCL);
}

void Drain(int descriptor) {
  ioctl(descriptor, TCSBRK, 1);
}

}  // namespace handheld::SerialLine
