#include "sources/PortSource.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

#include "base/FileDescriptor.h"
#include "base/HostError.h"
#include "handheld.h"

namespace host {

namespace {

constexpr std::size_t BLOCK = 2048;
constexpr std::chrono::milliseconds RETRY_PAUSE(200);

}  // namespace

void PortSource::Check(const std::string& device) {
  const FileDescriptor probe(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (!probe.IsOpen()) {
    throw HostError("cannot open " + device + ": " + std::strerror(errno));
  }
  if (isatty(probe.Get()) == 0) {
    throw HostError("cannot open " + device + ": it is no serial port");
  }
}

PortSource::PortSource(const std::string& device, int baudRate) {
  handheld::MapSerialPort("COM2:", device);
  port = CreateFileW(PORT_NAME, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
  if (port == INVALID_HANDLE_VALUE) {
    throw HostError("cannot open " + device + ": error " + std::to_string(GetLastError()));
  }
  DCB settings = {};
  settings.DCBlength = sizeof settings;
  if (baudRate != 0 && GetCommState(port, &settings) != FALSE) {
    settings.BaudRate = static_cast<DWORD>(baudRate);
    SetCommState(port, &settings);
  }
}

PortSource::~PortSource() {
  Close();
}

std::optional<std::string> PortSource::Read() {
  while (true) {
    HANDLE current = INVALID_HANDLE_VALUE;
    {
      std::unique_lock lock(mutex);
      if (stopped) {
        return std::nullopt;
      }
      current = port;
    }
    std::string bytes(BLOCK, '\0');
    DWORD count = 0;
    const BOOL read =
        ReadFile(current, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    if (read != FALSE && count > 0) {
      bytes.resize(count);
      return bytes;
    }
    std::unique_lock lock(mutex);
    stopSignal.wait_for(lock, RETRY_PAUSE, [this] { return stopped; });
  }
}

void PortSource::Stop() {
  Close();
}

void PortSource::Close() {
  HANDLE toClose = INVALID_HANDLE_VALUE;
  {
    const std::lock_guard lock(mutex);
    stopped = true;
    std::swap(toClose, port);
  }
  stopSignal.notify_all();
  if (toClose != INVALID_HANDLE_VALUE) {
    CloseHandle(toClose);
  }
}

}  // namespace host
