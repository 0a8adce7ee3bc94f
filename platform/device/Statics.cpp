#include "Statics.h"

#include <cstddef>
#include <cstdlib>
#include <span>

extern "C" {

using Initializer = void (*)();
// From the linker script: the constructors of static objects.
extern const Initializer initializersBegin[];
extern const Initializer initializersEnd[];

/// Identifies the library in registrations of destructors.
void* __dso_handle = &__dso_handle;

}  // extern "C"

namespace {

/// A destructor to be run when the library is unloaded.
struct Cleanup {
  void (*destroy)(void*);
  void* object;
  Cleanup* before;
};

Cleanup* newestCleanup = nullptr;

}  // namespace

void ConstructStatics() {
  for (const Initializer initialize : std::span(
           initializersBegin, static_cast<std::size_t>(initializersEnd - initializersBegin))) {
    initialize();
  }
}

void DestroyStatics() {
  while (newestCleanup != nullptr) {
    Cleanup* cleanup = newestCleanup;
    newestCleanup = cleanup->before;
    cleanup->destroy(cleanup->object);
    std::free(cleanup);
  }
}

extern "C" {

/// Called by the compiler's code behind each constructor of a static object. Without memory the
/// object is never destroyed.
int __aeabi_atexit(void* object, void (*destroy)(void*), void*) {
  auto* cleanup = static_cast<Cleanup*>(std::malloc(sizeof(Cleanup)));
  if (cleanup == nullptr) {
    return -1;
  }
  *cleanup = {destroy, object, newestCleanup};
  newestCleanup = cleanup;
  return 0;
}

}  // extern "C"
