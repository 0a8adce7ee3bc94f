// Library that loads another one when it is loaded, and never frees it.
#include <cstdio>

#include "handheld.h"

namespace {

/// Shows whether static objects are still alive.
struct Witness {
  ~Witness() { isAlive = false; }
  bool isAlive = true;
} witness;

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    return LoadLibraryW(u"Probe.dll") != nullptr ? TRUE : FALSE;
  }
  std::fprintf(stderr, "outer detached, statics alive %d\n", witness.isAlive);
  return TRUE;
}
