#include "core/LastError.h"
#include "windows/WindowTable.h"

namespace handheld {

extern "C" {

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR timer, UINT milliseconds, TIMERPROC procedure) {
  return Guarded<UINT_PTR>(0, [&]() -> UINT_PTR {
    const auto found = WindowTable::Instance().Find(window);
    if (!found) {
      return Fail<UINT_PTR>(ERROR_INVALID_WINDOW_HANDLE, 0);
    }
    if (procedure != nullptr) {
      return Fail<UINT_PTR>(ERROR_INVALID_PARAMETER, 0);
    }
    found->queue->SetTimer(window, timer, milliseconds);
    return timer != 0 ? timer : 1;
  });
}

BOOL WINAPI KillTimer(HWND window, UINT_PTR timer) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = WindowTable::Instance().Find(window);
    if (!found) {
      return Fail(ERROR_INVALID_WINDOW_HANDLE, FALSE);
    }
    return found->queue->KillTimer(window, timer) ? TRUE : Fail(ERROR_INVALID_PARAMETER, FALSE);
  });
}

}  // extern "C"

}  // namespace handheld
