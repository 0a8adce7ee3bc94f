#include "sources/SerialPort.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>

#include <array>
#include <cerrno>

#include "serial/SerialLine.h"

namespace host {

namespace {

constexpr std::size_t BLOCK = 4096;

bool IsFailure(int error) {
  return error != EAGAIN && error != EINTR;
}

}  // namespace

SerialPort::SerialPort(const std::string& path)
    : port(open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
  if (!port.IsOpen()) {
    return;
  }
  if (isatty(port.Get()) == 0 || !handheld::SerialLine::MakeRaw(port.Get())) {
    port = FileDescriptor();
    errno = ENOTTY;
    return;
  }
  handheld::SerialLine::SetExclusive(port.Get(), true);
}

/// Somebody else may still have the line open.
SerialPort::~SerialPort() {
  if (port.IsOpen()) {
    handheld::SerialLine::SetExclusive(port.Get(), false);
  }
}

void SerialPort::SetBaudRate(int baud) const {
  handheld::SerialLine::SetBaud(port.Get(), static_cast<std::uint32_t>(baud));
  tcflush(port.Get(), TCIFLUSH);
}

std::optional<std::string> SerialPort::Read(int timeoutMs, const siblings::WakeEvent& stop) const {
  std::array<pollfd, 2> waits = {
      {{port.Get(), POLLIN, 0}, {stop.GetDescriptor(), POLLIN, 0}},
  };
  const int ready = poll(waits.data(), waits.size(), timeoutMs);
  if (ready <= 0 || stop.IsRaised()) {
    return ready < 0 && IsFailure(errno) ? std::nullopt : std::optional<std::string>("");
  }
  std::string bytes(BLOCK, '\0');
  const ssize_t count = read(port.Get(), bytes.data(), bytes.size());
  if (count == 0 || (count < 0 && IsFailure(errno))) {
    return std::nullopt;
  }
  bytes.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
  return bytes;
}

}  // namespace host
