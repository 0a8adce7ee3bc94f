#include "gps/SerialPort.h"

#include <algorithm>
#include <string>

#include "base/CodePage.h"

namespace ferolin {

namespace {

constexpr int BAUD_RATES[] = {300, 2400, 4800, 9600, 19200, 38400, 57600, 115200};

}  // namespace

HANDLE OpenSerialPort(std::string_view portName) {
  const WideString device = Widen(portName) + TEXT(":");
  return CreateFileW(device.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool ApplyBaudRate(HANDLE port, int baudRate) {
  if (std::ranges::find(BAUD_RATES, baudRate) == std::end(BAUD_RATES)) {
    return true;
  }
  DCB settings = {};
  settings.DCBlength = sizeof settings;
  if (!GetCommState(port, &settings)) {
    return false;
  }
  settings.BaudRate = static_cast<DWORD>(baudRate);
  SetCommState(port, &settings);
  return true;
}

}  // namespace ferolin
