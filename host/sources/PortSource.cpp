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

constexpr std::size_t PORT_BLOCK_BYTES = 2048;
constexpr std::chrono::seconds RETRY_PAUSE(1);
constexpr const char* NO_PORT = ": it is no serial port";

FileDescriptor Probe(const std::string& device) {
  return FileDescriptor(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
}

void SetBaudRate(HANDLE port, int baudRate) {
  DCB settings = {};
  settings.DCBlength = sizeof settings;
  if (baudRate != 0 && GetCommState(port, &settings) != FALSE) {
    settings.BaudRate = static_cast<DWORD>(baudRate);
    SetCommState(port, &settings);
  }
}

}  // namespace

std::string DescribeOpenFailure(const std::string& device, int error) {
  const std::string text = "cannot open " + device + ": " + std::strerror(error);
  return error == EACCES
             ? text + " (the group dialout may: \"sudo adduser $USER dialout\", then log in anew)"
             : text;
}

std::string PortSource::FindTrouble(const std::string& device) {
  const FileDescriptor probe = Probe(device);
  if (!probe.IsOpen()) {
    return DescribeOpenFailure(device, errno);
  }
  return isatty(probe.Get()) == 0 ? "cannot open " + device + NO_PORT : std::string();
}

void PortSource::Check(const std::string& device) {
  const FileDescriptor probe = Probe(device);
  const bool isOther = probe.IsOpen() ? isatty(probe.Get()) == 0 : errno == EISDIR;
  if (isOther) {
    throw HostError("cannot open " + device + NO_PORT);
  }
}

PortSource::PortSource(const std::string& device, int baudRate)
    : device(device), baudRate(baudRate) {
  handheld::MapSerialPort("COM2:", device);
}

PortSource::~PortSource() {
  Stop();
}

std::optional<std::string> PortSource::Read() {
  while (true) {
    const HANDLE current = Open();
    if (current != INVALID_HANDLE_VALUE) {
      if (std::optional<std::string> bytes = ReadFrom(current)) {
        return bytes;
      }
      Close(current);
    }
    std::unique_lock lock(mutex);
    if (stopSignal.wait_for(lock, RETRY_PAUSE, [this] { return stopped; })) {
      return std::nullopt;
    }
  }
}

/// The open port, or an invalid handle.
HANDLE PortSource::Open() {
  const std::lock_guard lock(mutex);
  if (stopped || port != INVALID_HANDLE_VALUE) {
    return port;
  }
  port = CreateFileW(PORT_NAME, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
  if (port != INVALID_HANDLE_VALUE) {
    SetBaudRate(port, baudRate);
    trouble.clear();
    return port;
  }
  const std::string error = std::to_string(GetLastError());
  trouble = FindTrouble(device);
  if (trouble.empty()) {
    trouble = "cannot open " + device + ": error " + error;
  }
  return port;
}

std::optional<std::string> PortSource::ReadFrom(HANDLE port) {
  std::string bytes(PORT_BLOCK_BYTES, '\0');
  DWORD count = 0;
  if (ReadFile(port, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == FALSE) {
    return std::nullopt;
  }
  bytes.resize(count);
  return bytes;
}

/// Closes the port unless somebody else has.
void PortSource::Close(HANDLE toClose) {
  {
    const std::lock_guard lock(mutex);
    if (port != toClose || toClose == INVALID_HANDLE_VALUE) {
      return;
    }
    port = INVALID_HANDLE_VALUE;
  }
  CloseHandle(toClose);
}

void PortSource::Stop() {
  HANDLE toClose = INVALID_HANDLE_VALUE;
  {
    const std::lock_guard lock(mutex);
    stopped = true;
    toClose = port;
  }
  stopSignal.notify_all();
  Close(toClose);
}

std::string PortSource::GetTrouble() const {
  const std::lock_guard lock(mutex);
  return trouble;
}

}  // namespace host
