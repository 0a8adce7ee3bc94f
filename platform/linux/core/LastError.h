// Last error of the calling thread, error codes that only this home reports, and the guard that
// keeps C++ exceptions inside the API calls.
#pragma once

#include <windows.h>

namespace handheld {

constexpr DWORD ERROR_INVALID_FUNCTION = 1;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_NOT_SAME_DEVICE = 17;
constexpr DWORD ERROR_WRITE_PROTECT = 19;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_INVALID_NAME = 123;
constexpr DWORD ERROR_DLL_INIT_FAILED = 1114;
constexpr DWORD ERROR_CANNOT_FIND_WINDOW_CLASS = 1407;
constexpr DWORD ERROR_CLASS_ALREADY_EXISTS = 1410;

/// Sets what GetLastError answers on this thread.
void SetError(DWORD code);

/// The device's code for a Linux error number; ERROR_GEN_FAILURE for numbers without a counterpart.
DWORD ErrorFromErrno(int error);

/// Sets the last error and returns `result`.
template <typename Result>
Result Fail(DWORD code, Result result) {
  SetError(code);
  return result;
}

/// Returns what `body` returns, or `onException` when it throws; only std::bad_alloc is expected.
template <typename Result, typename Body>
Result Guarded(Result onException, Body body) noexcept {
  try {
    return body();
  } catch (...) {
    return Fail(ERROR_NOT_ENOUGH_MEMORY, onException);
  }
}

}  // namespace handheld
