#include "engine/EngineFunctions.h"

#include <cstddef>
#include <cstring>

#include "base/ModuleFunction.h"

namespace app {

namespace {

struct Place {
  LPCWSTR name;
  std::size_t offset;
};

// A table takes less room than a call for each function.
constexpr Place PLACES[] = {
#define PLACE(name) {TEXT(#name), offsetof(EngineFunctions, name)},
    FEROLIN_FUNCTIONS(PLACE)
#undef PLACE
};

}  // namespace

LPCWSTR EngineFunctions::Bind(HMODULE module) {
  using AnyFunction = void();
  LPCWSTR missing = nullptr;
  for (const Place& place : PLACES) {
    AnyFunction* function = nullptr;
    ferolin::FindEntry(module, place.name, function);
    std::memcpy(reinterpret_cast<char*>(this) + place.offset, &function, sizeof function);
    missing = function != nullptr ? missing : place.name;
  }
  return missing;
}

}  // namespace app
