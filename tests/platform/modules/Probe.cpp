// Library that tests load; counts the calls of its entry function.
#include "Probe.h"

#include "handheld.h"

namespace {

int attachments = 0;
HINSTANCE ownModule = nullptr;
ProbeObserver observer = nullptr;

/// Shows whether static objects are still alive.
struct Witness {
  ~Witness() { isAlive = false; }
  bool isAlive = true;
} witness;

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved) {
  if (reason == DLL_PROCESS_ATTACH) {
    ++attachments;
    ownModule = module;
    // Allowed in an entry function; the path is known already.
    char16_t name[260];
    if (GetModuleFileNameW(module, name, 260) == 0)
      return FALSE;
  }
  if (reason == DLL_PROCESS_DETACH && observer != nullptr)
    observer(reserved != nullptr, witness.isAlive);
  return PROBE_RESULT;
}

extern "C" {

int ProbeAttachments() {
  return attachments;
}

HINSTANCE ProbeModule() {
  return ownModule;
}

void ProbeObserve(ProbeObserver newObserver) {
  observer = newObserver;
}
}
