#include "engine/EngineFunctions.h"

#include "base/ModuleFunction.h"

namespace app {

LPCWSTR EngineFunctions::Bind(HMODULE module) {
  LPCWSTR missing = nullptr;
#define FIND(name)                               \
  ferolin::FindEntry(module, TEXT(#name), name); \
  missing = (name) != nullptr ? missing : TEXT(#name);
  FEROLIN_FUNCTIONS(FIND)
#undef FIND
  return missing;
}

}  // namespace app
