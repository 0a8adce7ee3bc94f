#include "serial/PortStream.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "core/LastError.h"
#include "serial/ReadObserver.h"
#include "serial/SerialLine.h"
#include "serial/SerialPorts.h"
#include "time/Clock.h"

namespace handheld {

namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

constexpr Burst::Duration LOOK_INTERVAL = 1s;

bool IsPseudoTerminal(const std::string& path) {
  return path.starts_with("/dev/pts/");
}

Descriptor OpenDevice(const std::string& path) {
  Descriptor device(open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  struct stat status;
  if (!device.IsOpen() || fstat(device.GetNumber(), &status) != 0) {
    return {};
  }
  const bool isPort = S_ISCHR(status.st_mode) || S_ISFIFO(status.st_mode);
  if (!isPort || !SerialLine::MakeRaw(device.GetNumber())) {
    errno = ENODEV;
    return {};
  }
  // Debugging a pseudo-terminal from both sides is common and harmless; on a real line a second
  // reader steals bytes.
  if (!IsPseudoTerminal(path)) {
    SerialLine::SetExclusive(device.GetNumber(), true);
  }
  return device;
}

timespec ToTimespec(Burst::Duration duration) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(duration);
  return {static_cast<time_t>(seconds.count()), static_cast<long>((duration - seconds).count())};
}

}  // namespace

std::shared_ptr<PortStream> PortStream::Open(const std::string& devicePath, std::string claimName,
                                             DWORD& error) {
  Descriptor opened = OpenDevice(devicePath);
  if (!opened.IsOpen()) {
    error = ErrorFromErrno(errno);
    return nullptr;
  }
  return std::make_shared<PortStream>(devicePath, std::move(claimName), std::move(opened));
}

PortStream::PortStream(std::string devicePath, std::string claimName, Descriptor opened)
    : path(std::move(devicePath)),
      claim(std::move(claimName)),
      closeEvent(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      device(std::make_shared<const Descriptor>(std::move(opened))) {}

void PortStream::HandleClosed() {
  {
    const std::lock_guard lock(mutex);
    closed = true;
    // A read in progress still holds the device; others may open it at once.
    if (device != nullptr) {
      SerialLine::SetExclusive(device->GetNumber(), false);
    }
    device.reset();
  }
  eventfd_write(closeEvent.GetNumber(), 1);
  SerialPorts::Instance().Release(claim);
}

PortStream::Device PortStream::GetDevice() const {
  const std::lock_guard lock(mutex);
  return device;
}

PortStream::Event PortStream::Await(const Device& from, short events,
                                    std::optional<Burst::Duration> patience) const {
  pollfd waits[] = {{closeEvent.GetNumber(), POLLIN, 0},
                    {from == nullptr ? -1 : from->GetNumber(), events, 0}};
  timespec limit = ToTimespec(patience.value_or(0ns));
  const int ready = ppoll(waits, 2, patience ? &limit : nullptr, nullptr);
  if (waits[0].revents != 0 && ready > 0) {
    return Event::CLOSED;
  }
  // Interrupted by a signal. The non-blocking transfer that follows reports what is there.
  if (ready < 0) {
    return Event::DATA;
  }
  if (ready == 0) {
    return Event::SILENCE;
  }
  return (waits[1].revents & events) != 0 ? Event::DATA : Event::LOST;
}

PortStream::Event PortStream::Receive(const Device& from, Burst& burst) {
  // Under the lock, so that nothing is taken from the line once CloseHandle has returned.
  const std::lock_guard lock(mutex);
  if (closed) {
    return Event::CLOSED;
  }
  const ssize_t count = read(from->GetNumber(), burst.GetFreeSpace(), burst.GetFreeSize());
  if (count > 0) {
    burst.Add(static_cast<std::size_t>(count), SteadyClock::now());
    return Event::DATA;
  }
  const bool isJustEmpty = count < 0 && (errno == EAGAIN || errno == EINTR);
  return isJustEmpty ? Event::DATA : Event::LOST;
}

PortStream::Event PortStream::Gather(const Device& from, Burst& burst) {
  while (!burst.IsFull()) {
    if (burst.IsOverdue(SteadyClock::now()) && burst.GetWholeLinesSize() > 0) {
      break;
    }
    const auto patience =
        burst.IsEmpty() ? std::nullopt : std::optional(burst.GetPause(Clock::Instance().GetRate()));
    const Event event = Await(from, POLLIN, patience);
    if (event != Event::DATA) {
      return event;
    }
    const Event received = Receive(from, burst);
    if (received != Event::DATA) {
      return received;
    }
  }
  return Event::SILENCE;
}

void PortStream::TakeLeftover(Burst& burst) {
  const std::lock_guard lock(mutex);
  const std::size_t count = std::min(leftover.size(), burst.GetFreeSize());
  if (count == 0) {
    return;
  }
  std::memcpy(burst.GetFreeSpace(), leftover.data(), count);
  burst.Add(count, SteadyClock::now());
  leftover.erase(0, count);
}

DWORD PortStream::KeepLeftover(const Burst& burst) {
  const std::size_t whole = burst.GetWholeLinesSize();
  if (burst.IsFull() || whole == 0 || !burst.IsOverdue(SteadyClock::now())) {
    return static_cast<DWORD>(burst.GetUsedSize());
  }
  const std::lock_guard lock(mutex);
  const char* start = burst.GetFreeSpace() - burst.GetUsedSize();
  leftover.insert(0, start + whole, burst.GetUsedSize() - whole);
  return static_cast<DWORD>(whole);
}

void PortStream::Drop(const Device& lost) {
  const std::lock_guard lock(mutex);
  if (device != lost) {
    return;
  }
  device.reset();
  lastLook = SteadyClock::now();
}

PortStream::Event PortStream::AwaitReturn() {
  SteadyClock::time_point nextLook;
  {
    const std::lock_guard lock(mutex);
    nextLook = lastLook + LOOK_INTERVAL;
  }
  const auto now = SteadyClock::now();
  const auto patience = now < nextLook ? nextLook - now : 0ns;
  if (Await(nullptr, 0, patience) == Event::CLOSED) {
    return Event::CLOSED;
  }

  const std::lock_guard lock(mutex);
  if (closed) {
    return Event::CLOSED;
  }
  if (device != nullptr) {
    return Event::DATA;
  }
  lastLook = SteadyClock::now();
  // The number of a closed pseudo-terminal soon belongs to somebody else's shell.
  if (IsPseudoTerminal(path)) {
    return Event::LOST;
  }
  Descriptor opened = OpenDevice(path);
  if (!opened.IsOpen()) {
    return Event::LOST;
  }
  if (wantedBaud) {
    SerialLine::SetBaud(opened.GetNumber(), *wantedBaud);
  }
  device = std::make_shared<const Descriptor>(std::move(opened));
  return Event::DATA;
}

DWORD PortStream::Read(void* buffer, DWORD size, DWORD& count) {
  if (size == 0) {
    return ERROR_SUCCESS;
  }
  Burst burst(static_cast<char*>(buffer), size);
  TakeLeftover(burst);
  while (true) {
    const Device from = GetDevice();
    const Event event = from == nullptr ? AwaitReturn() : Gather(from, burst);
    if (event == Event::CLOSED) {
      return ERROR_OPERATION_ABORTED;
    }
    if (event == Event::LOST && from != nullptr) {
      Drop(from);
    }
    if (event == Event::LOST && from == nullptr) {
      return ERROR_GEN_FAILURE;
    }
    if (!burst.IsEmpty()) {
      break;
    }
  }
  count = KeepLeftover(burst);
  ReadObserver::Instance().OnRead({static_cast<const char*>(buffer), count});
  return ERROR_SUCCESS;
}

DWORD PortStream::Write(const void* data, DWORD size, DWORD& count) {
  while (count < size) {
    const Device to = GetDevice();
    if (to == nullptr) {
      return ERROR_GEN_FAILURE;
    }
    const Event event = Await(to, POLLOUT, std::nullopt);
    if (event == Event::CLOSED) {
      return ERROR_OPERATION_ABORTED;
    }
    if (event == Event::LOST) {
      return ERROR_GEN_FAILURE;
    }
    const ssize_t sent =
        write(to->GetNumber(), static_cast<const char*>(data) + count, size - count);
    if (sent > 0) {
      count += static_cast<DWORD>(sent);
    } else if (errno != EAGAIN && errno != EINTR) {
      return ERROR_GEN_FAILURE;
    }
  }
  return ERROR_SUCCESS;
}

DWORD PortStream::Flush() {
  const Device to = GetDevice();
  if (to == nullptr) {
    return ERROR_GEN_FAILURE;
  }
  SerialLine::Drain(to->GetNumber());
  return ERROR_SUCCESS;
}

std::optional<DWORD> PortStream::GetBaud() const {
  const Device from = GetDevice();
  return from == nullptr ? std::nullopt : SerialLine::GetBaud(from->GetNumber());
}

bool PortStream::SetBaud(DWORD baud) {
  const std::lock_guard lock(mutex);
  if (device == nullptr || !SerialLine::SetBaud(device->GetNumber(), baud)) {
    return false;
  }
  wantedBaud = baud;
  return true;
}

}  // namespace handheld
