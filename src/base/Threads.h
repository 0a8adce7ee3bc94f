// Waiting for threads to end.
#pragma once

#include <windows.h>

namespace ferolin {

/// INVALID_HANDLE_VALUE and null stand for no thread.
bool IsThreadRunning(HANDLE thread);

/// Polls every `pauseMs`. There is no time-out: a thread that never ends blocks for ever.
void WaitForThread(HANDLE thread, DWORD pauseMs);

}  // namespace ferolin
