#include "receiver/SerialPorts.h"

#include "base/CodePage.h"
#include "base/Format.h"

namespace app {

namespace {

constexpr int PORT_COUNT = 32;

}  // namespace

bool IsSerialPort(const WideString& name) {
  const HANDLE port = CreateFileW((name + TEXT(":")).c_str(), GENERIC_READ, 0, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (port != INVALID_HANDLE_VALUE) {
    CloseHandle(port);
    return true;
  }
  const DWORD error = GetLastError();
  return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
}

std::vector<int> FindSerialPorts() {
  std::vector<int> ports;
  for (int number = 0; number < PORT_COUNT; ++number) {
    if (IsSerialPort(ferolin::Widen(ferolin::Format("COM%i", number)))) {
      ports.push_back(number);
    }
  }
  return ports;
}

}  // namespace app
