// Ways into a library or program of the device: code that aligns the stack.
#pragma once

#include <cstddef>
#include <type_traits>

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
