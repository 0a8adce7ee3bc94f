#include "sources/PseudoTerminal.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "base/HostError.h"

namespace host {

PseudoTerminal::PseudoTerminal()
    : master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
  std::array<char, 128> name = {};
  if (!master.IsOpen() || grantpt(master.Get()) != 0 || unlockpt(master.Get()) != 0 ||
      ptsname_r(master.Get(), name.data(), name.size()) != 0) {
    throw HostError(std::string("cannot make a pseudo-terminal: ") + std::strerror(errno));
  }
  device = name.data();
  slave = FileDescriptor(open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
  termios settings = {};
  if (!slave.IsOpen() || tcgetattr(slave.Get(), &settings) != 0) {
    throw HostError("cannot open " + device + ": " + std::strerror(errno));
  }
  cfmakeraw(&settings);
  tcsetattr(slave.Get(), TCSANOW, &settings);
}

std::size_t PseudoTerminal::Write(std::string_view bytes) const {
  const ssize_t written = write(master.Get(), bytes.data(), bytes.size());
  return written > 0 ? static_cast<std::size_t>(written) : 0;
}

int PseudoTerminal::CountUnread() const {
  int count = 0;
  return ioctl(slave.Get(), FIONREAD, &count) == 0 ? count : 0;
}

}  // namespace host
