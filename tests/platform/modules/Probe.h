// What the library that tests load exports.
#pragma once

#include <windows.h>

/// Told when the library is detached: whether the process ends, and whether the library's static
/// objects still live.
using ProbeObserver = void (*)(bool isProcessEnding, bool areStaticsAlive);

extern "C" {
[[gnu::visibility("default")]] int ProbeAttachments();
[[gnu::visibility("default")]] HINSTANCE ProbeModule();
[[gnu::visibility("default")]] void ProbeObserve(ProbeObserver newObserver);
}
