#include "serial/FedPort.h"

#include <utility>

#include "serial/SerialPorts.h"

namespace handheld {

FedPort::FedPort(PortReader reader, std::string claim)
    : reader(std::move(reader)), claim(std::move(claim)) {}

void FedPort::HandleClosed() {
  {
    const std::lock_guard lock(mutex);
    closed = true;
  }
  closing.notify_all();
  SerialPorts::Instance().Release(claim);
}

DWORD FedPort::Read(void* buffer, DWORD size, DWORD& count) {
  if (size == 0) {
    return ERROR_SUCCESS;
  }
  const std::size_t read = reader(static_cast<char*>(buffer), size);
  std::unique_lock lock(mutex);
  if (read == 0) {
    closing.wait(lock, [this] { return closed; });
  }
  // Nothing is taken from the port once CloseHandle has returned.
  if (closed) {
    return ERROR_OPERATION_ABORTED;
  }
  count = static_cast<DWORD>(read);
  return ERROR_SUCCESS;
}

DWORD FedPort::Write(const void*, DWORD size, DWORD& count) {
  count = size;
  return ERROR_SUCCESS;
}

}  // namespace handheld
