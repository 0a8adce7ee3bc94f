#include "base/Threads.h"

namespace ferolin {

bool IsThreadRunning(HANDLE thread) {
  DWORD exitCode = 0;
  return thread != INVALID_HANDLE_VALUE && GetExitCodeThread(thread, &exitCode) &&
         exitCode == STILL_ACTIVE;
}

void WaitForThread(HANDLE thread, DWORD pauseMs) {
  while (IsThreadRunning(thread)) {
    Sleep(pauseMs);
  }
}

}  // namespace ferolin
