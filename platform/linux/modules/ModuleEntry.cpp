// Linked into each module that has an entry function. The entry stays hidden inside the module,
// whose exports are its own affair; this hands it to LoadLibraryW, which calls it once everything
// else in the module is set up.
#include "modules/ModuleEntry.h"

extern "C" [[gnu::visibility("hidden")]] BOOL WINAPI DllMain(HINSTANCE module, DWORD reason,
                                                             LPVOID reserved);

namespace {

struct Registration {
  Registration() { handheld::RegisterModuleEntry(DllMain); }
  ~Registration() { handheld::UnregisterModuleEntry(DllMain); }
};

const Registration REGISTRATION;

}  // namespace
