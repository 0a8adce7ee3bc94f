// Entries of libraries that are loaded at run time.
#pragma once

#include <windows.h>

namespace ferolin {

/// Sets `entry` to the function of that name in `module`, or to null when module or function is
/// missing.
template <class Function>
void FindEntry(HMODULE module, LPCWSTR name, Function*& entry) {
  using AnyFunction = void (*)();
  entry = module == nullptr ? nullptr
                            : reinterpret_cast<Function*>(
                                  reinterpret_cast<AnyFunction>(GetProcAddressW(module, name)));
}

}  // namespace ferolin
