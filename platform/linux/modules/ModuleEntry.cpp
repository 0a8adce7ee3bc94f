// Linked into each module that has an entry function. Registers the entry with the loader after the
// module's other static objects are made, and takes it back before they are destroyed. The entry
// itself is not exported.
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

/// The name by which a module takes this source from its archive.
extern "C" [[gnu::visibility("hidden")]] const char ferolinModuleStart = 0;
