// Border between the device's calling convention and the compiler's: all entries and calls of the
// library whose rules differ.
//
// Both conventions pass the first four 32-bit words in r0 to r3 and the rest on the stack, return a
// word in r0 and keep r4 to r11. They differ in two things:
//
// - The stack is a multiple of 4 on the device and must be one of 8 for our compiler. So every way
//   into the library goes through an entry below that aligns it: the 59 exports, the entry point
//   and the procedures of threads. From then on it stays aligned, and the device's functions do not
//   mind.
// - The device packs arguments; our compiler starts a 64-bit one in an even register or at a
//   multiple of 8. That matters for a double or 64-bit integer behind an odd number of words. No
//   export and no function that is taken from the device by name has one, except the run-time's
//   variadic printing, whose double is handed over below as two words.
//
// The same on both sides, therefore called directly: doubles that come first (sin, pow), doubles
// and 64-bit integers that are returned (atof, _atoi64), structures of up to 4 bytes by value
// (BLENDFUNCTION), methods of the imaging interfaces.

#include <crt.h>
#include <ferolin.h>

#include <bit>
#include <cstdint>
#include <new>
#include <type_traits>

namespace {

template <class Type>
constexpr bool IS_ONE_WORD = std::is_scalar_v<Type> && sizeof(Type) <= 4;
template <>
constexpr bool IS_ONE_WORD<void> = true;

/// Arguments that an entry passes on: four in registers and one on the stack.
constexpr std::size_t MAX_ENTRY_ARGUMENTS = 5;

template <class Result, class... Arguments>
consteval bool IsEntryPossible(Result (*)(Arguments...)) {
  return IS_ONE_WORD<Result> && (IS_ONE_WORD<Arguments> && ...) &&
         sizeof...(Arguments) <= MAX_ENTRY_ARGUMENTS;
}

}  // namespace

// ENTRY makes function `entry`, which calls `target` with the stack aligned. It always copies a
// fifth word: what is there for functions with fewer arguments belongs to the caller's frame and is
// not looked at.
asm(R"(
  .macro ENTRY entry, target
  .pushsection .text.entry.\entry, "ax", %progbits
  .arm
  .global \entry
  .type \entry, %function
\entry:
  push {r4, lr}
  mov r4, sp
  ldr ip, [sp, #8]
  sub sp, sp, #8
  bic sp, sp, #7
  str ip, [sp]
  bl \target
  mov sp, r4
  pop {r4, lr}
  bx lr
  .size \entry, . - \entry
  .popsection
  .endm
)");

// Ways in.

// The 59 exports: the export table points at Entry_<name>.
#define EXPORT(name)                    \
  asm("ENTRY Entry_" #name ", " #name); \
  static_assert(IsEntryPossible(name), #name " cannot be called packed");
#include "ExportNames.inc"
#undef EXPORT

extern "C" {

// The entry point of the library; StartUp is in StartUp.cpp.
BOOL StartUp(HINSTANCE module, DWORD reason, LPVOID reserved);
asm("ENTRY DeviceEntry, StartUp");
static_assert(IsEntryPossible(StartUp));

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
