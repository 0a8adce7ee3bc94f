  .syntax unified
  .arm
  .text

@ The exports.
  .macro EXPORT name
  .global \name
  .type \name, %function
\name:
  ldr ip, 1f
  ldr ip, [pc, ip]
  b CrossIn
1:
  .word exportSlot - (\name + 12)
  .size \name, . - \name
  .set exportSlot, exportSlot + 4
  .endm

  .set exportSlot, deviceExports
#define EXPORT(name) EXPORT name
#include "ExportNames.inc"

  .bss
  .balign 4
  .global deviceExports
  .hidden deviceExports
deviceExports:
  .space 4 * 64

  .section .note.GNU-stack, "", %progbits
