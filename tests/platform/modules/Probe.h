// Exports of the library that tests load.
#pragma once

#include <windows.h>

/// Called when the library is detached, with whether the process ends and whether the library's
/// static objects still live.
using ProbeObserver = void (*)(bool isProcessEnding, bool areStaticsAlive);

extern "C" {
[[gnu::visibility("default")]] int ProbeAttachments();
[[gnu::visibility("default")]] HINSTANCE ProbeModule();
[[gnu::visibility("default")]] void ProbeObserve(ProbeObserver newObserver);
}
