// Border between the device's calling convention and the compiler's: calls whose rules differ. Ways
// in are made with Entry.h.
//
// Both conventions pass the first four 32-bit words in r0 to r3 and the rest on the stack, return a
// word in r0 and keep r4 to r11. They differ in two things:
//
// - The stack is a multiple of 4 on the device and must be one of 8 for our compiler. So every way
//   in goes through an entry that aligns it: exports, the entry point, the procedures of threads
//   and windows. From then on it stays aligned, and the device's functions do not mind.
// - The device packs arguments; our compiler starts a 64-bit one in an even register or at a
//   multiple of 8. That matters for a double or 64-bit integer behind an odd number of words. No
//   export and no function that is taken from the device by name has one, except the run-time's
//   variadic printing, whose double is handed over below as two words.
//
// The same on both sides, therefore called directly: doubles that come first (sin, pow), doubles
// and 64-bit integers that are returned (atof, _atoi64), structures of up to 4 bytes by value
// (BLENDFUNCTION), methods of the imaging interfaces.

#include <crt.h>
#include <windows.h>

#include <bit>
#include <cstdint>
#include <new>

#include "Entry.h"

// Ways in.

extern "C" {

// Threads: CreateThread as the engine knows it hands the device an entry, which finds the procedure
// in its argument.

struct ThreadStart {
  LPTHREAD_START_ROUTINE procedure;
  LPVOID argument;
};

[[gnu::used]] DWORD RunThread(ThreadStart* start) {
  const ThreadStart own = *start;
  delete start;
  return own.procedure(own.argument);
}

DWORD DeviceThread(LPVOID start);
asm("ENTRY DeviceThread, RunThread");
static_assert(IsEntryPossible(RunThread));

extern decltype(&CreateThread) __imp_CreateThread;

HANDLE WINAPI CreateThread(SECURITY_ATTRIBUTES* security, DWORD stackSize,
                           LPTHREAD_START_ROUTINE procedure, LPVOID argument, DWORD flags,
                           LPDWORD threadId) {
  auto* start = new (std::nothrow) ThreadStart{procedure, argument};
  if (start == nullptr) {
    return nullptr;
  }
  const HANDLE thread =
      __imp_CreateThread(security, stackSize, DeviceThread, start, flags, threadId);
  if (thread == nullptr) {
    delete start;
  }
  return thread;
}

// Ways out.

/// The run-time's variadic print, declared with the words that the device finds behind `format`.
extern int (*__imp__snprintf)(char* out, std::size_t size, const char* format, std::uint32_t first,
                              std::uint32_t second);

}  // extern "C"

namespace {

/// Prints one argument of up to two words. The device neither terminates text that fills the buffer
/// nor tells how long it would have been.
int Print(char* out, std::size_t size, const char* conversion, std::uint32_t first,
          std::uint32_t second) {
  const int length = __imp__snprintf(out, size, conversion, first, second);
  const int longest = static_cast<int>(size) - 1;
  if (length >= 0 && length <= longest) {
    return length;
  }
  out[longest] = '\0';
  return longest;
}

}  // namespace

extern "C" {

int CrtPrintDouble(char* out, std::size_t size, const char* conversion, double value) {
  const auto words = std::bit_cast<std::uint64_t>(value);
  return Print(out, size, conversion, static_cast<std::uint32_t>(words),
               static_cast<std::uint32_t>(words >> 32));
}

int CrtPrintInt(char* out, std::size_t size, const char* conversion, int value) {
  return Print(out, size, conversion, static_cast<std::uint32_t>(value), 0);
}

}  // extern "C"
