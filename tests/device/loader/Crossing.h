// Crossings between the device's library and this program, in the ways of the device: whatever
// enters the library does so with a stack that is no multiple of 8, and whatever leaves it is held
// to what our side needs.
#pragma once

#include <cstdint>
#include <string>

extern "C" {

/// Calls a function of the library with up to three words, on a stack that is a multiple of 4 only.
/// Ends the program when it does not keep the registers that belong to its caller.
std::uint32_t CallDevice(void* first, std::uint32_t second, void* third, void* function);

/// The same with four words.
std::uint32_t CallDeviceWithFour(void* first, std::uint32_t second, std::uint32_t third,
                                 std::uint32_t fourth, void* function);

/// Addresses of the library's exports, in the order of the module-definition file. The functions of
/// these names in this program call through here as CallDevice does.
extern void* deviceExports[];
}

/// Code through which the library calls `function`: ends the program, naming it, when the stack is
/// not aligned. Lasts as long as the program.
void* MakeWayOut(const std::string& name, void* function);
