#include "receiver/SerialPorts.h"

#include <algorithm>
#include <memory>
#include <new>
#include <string>

#include "base/CodePage.h"
#include "base/Format.h"
#include "base/ModuleFunction.h"
#include "base/Number.h"

namespace app {

namespace {

using ferolin::WideStringView;

constexpr int PROBED_PORTS = 32;
constexpr WideStringView PREFIX = TEXT("COM");

using ListCall = DWORD WINAPI(LPCWSTR name, LPWSTR answer, DWORD size);

/// The call that lists ports and the like without opening them, which wakes up a Bluetooth receiver
/// for seconds. Only desktop Windows has it.
ListCall* FindList() {
  ListCall* list = nullptr;
  ferolin::FindEntry(LoadLibraryW(TEXT("kernel32.dll")), TEXT("QueryDosDeviceW"), list);
  return list;
}

/// Number in "COM1"; -1 in other names.
int NumberIn(WideStringView name) {
  if (!name.starts_with(PREFIX)) {
    return -1;
  }
  const std::string digits = ferolin::Narrow(name.substr(PREFIX.size()));
  const bool isNumber =
      !digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos;
  return isNumber ? ferolin::ParseInt(digits.c_str()) : -1;
}

/// Empty where the system has no list.
std::vector<int> ListPorts() {
  constexpr DWORD LARGE_ENOUGH = 0x10000;
  std::vector<int> ports;
  ListCall* const list = FindList();
  const std::unique_ptr<WCHAR[]> names(list != nullptr ? new (std::nothrow) WCHAR[LARGE_ENOUGH]
                                                       : nullptr);
  if (names == nullptr || list(nullptr, names.get(), LARGE_ENOUGH) == 0) {
    return ports;
  }
  for (LPCWSTR name = names.get(); *name != 0; name += WideStringView(name).size() + 1) {
    if (const int number = NumberIn(name); number >= 0) {
      ports.insert(std::ranges::upper_bound(ports, number), number);
    }
  }
  return ports;
}

bool IsListed(const WideString& name) {
  WCHAR target[MAX_PATH];
  ListCall* const list = FindList();
  return list != nullptr && list(name.c_str(), target, MAX_PATH) != 0;
}

}  // namespace

bool IsSerialPort(const WideString& name) {
  if (IsListed(name)) {
    return true;
  }
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
  std::vector<int> ports = ListPorts();
  if (!ports.empty()) {
    return ports;
  }
  for (int number = 0; number < PROBED_PORTS; ++number) {
    if (IsSerialPort(ferolin::Widen(ferolin::Format("COM%i", number)))) {
      ports.push_back(number);
    }
  }
  return ports;
}

}  // namespace app
