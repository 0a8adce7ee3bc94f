#include "ApplicationDoubles.windows.h"

#include <string>
#include <string_view>

#include "e2e/DeviceState.windows.h"

namespace app {

namespace {

/// Goes on evenly when the rate changes.
DWORD WINAPI GetTickCountDouble() {
  const e2e::Lock guard(e2e::theState->lock);
  return e2e::theState->ticks.GetMs(e2e::theState->timeRate);
}

HWND WINAPI FindWindowDouble(LPCWSTR className, LPCWSTR title) {
  HWND window = nullptr;
  DWORD process = 0;
  do {
    window = FindWindowExW(nullptr, window, className, title);
    GetWindowThreadProcessId(window, &process);
  } while (window != nullptr && process != GetCurrentProcessId());
  return window;
}

/// Lists the device's ports among other names, in no order.
DWORD WINAPI QueryDosDeviceDouble(LPCWSTR name, LPWSTR answer, DWORD size) {
  const e2e::Lock guard(e2e::theState->lock);
  const auto& ports = e2e::theState->ports;
  std::wstring text;
  if (name != nullptr) {
    const auto port = ports.find(name);
    text = port != ports.end() ? L"\\Device" + std::wstring(1, 0) : L"";
  } else {
    for (auto port = ports.rbegin(); port != ports.rend(); ++port) {
      text += port->first + std::wstring(1, 0);
    }
    text += std::wstring(L"COMPOSITE\0COM\0C:\0", 17);
  }
  if (text.empty() || text.size() >= size) {
    SetLastError(text.empty() ? ERROR_FILE_NOT_FOUND : ERROR_INSUFFICIENT_BUFFER);
    return 0;
  }
  text.copy(answer, text.size());
  answer[text.size()] = 0;
  return static_cast<DWORD>(text.size()) + 1;
}

/// For calls that are bound at run time.
FARPROC WINAPI GetProcAddressDouble(HMODULE module, LPCSTR name) {
  return std::string_view(name) == "QueryDosDeviceW" ? e2e::Erase(&QueryDosDeviceDouble)
                                                     : GetProcAddress(module, name);
}

std::vector<e2e::ImportDouble>& AddedDoubles() {
  static std::vector<e2e::ImportDouble> added;
  return added;
}

}  // namespace

std::vector<e2e::ImportDouble> MakeApplicationDoubles() {
  std::vector<e2e::ImportDouble> doubles = e2e::MakeDoubles();
  doubles.push_back({"GetProcAddress", e2e::Erase(&GetProcAddressDouble)});
  doubles.push_back({"FindWindowW", e2e::Erase(&FindWindowDouble)});
  doubles.push_back({"GetTickCount", e2e::Erase(&GetTickCountDouble)});
  doubles.insert(doubles.end(), AddedDoubles().begin(), AddedDoubles().end());
  return doubles;
}

AddedDouble::AddedDouble(const e2e::ImportDouble& added) {
  AddedDoubles().push_back(added);
}

}  // namespace app
