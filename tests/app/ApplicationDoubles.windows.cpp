#include "ApplicationDoubles.windows.h"

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

std::vector<e2e::ImportDouble>& AddedDoubles() {
  static std::vector<e2e::ImportDouble> added;
  return added;
}

}  // namespace

std::vector<e2e::ImportDouble> MakeApplicationDoubles() {
  std::vector<e2e::ImportDouble> doubles = e2e::MakeDoubles();
  doubles.push_back({"FindWindowW", e2e::Erase(&FindWindowDouble)});
  doubles.push_back({"GetTickCount", e2e::Erase(&GetTickCountDouble)});
  doubles.insert(doubles.end(), AddedDoubles().begin(), AddedDoubles().end());
  return doubles;
}

AddedDouble::AddedDouble(const e2e::ImportDouble& added) {
  AddedDoubles().push_back(added);
}

}  // namespace app
