// Linked into each module that has an entry function. Registers the entry with LoadLibraryW, which
// calls it after the module's static objects are constructed. The entry itself is not exported.
#include "modules/ModuleEntry.h"

extern "C" [[gnu::visibility("hidden")]] BOOL WINAPI DllMain(HINSTANCE module, DWORD reason,
                                                             LPVOID processEnd);

namespace {

struct Registration {
  Registration() { handheld::RegisterModuleEntry(DllMain); }
  ~Registration() { handheld::UnregisterModuleEntry(DllMain); }
};

const Registration REGISTRATION;

}  // namespace
