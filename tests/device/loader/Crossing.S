  .syntax unified
  .arm
  .text

@ In: the address of the function is in ip. Pushing nine words leaves the stack at a multiple of 4 that is none of 8;
@ the fifth argument moves along. The registers that a function keeps get marks that are looked at afterwards.
  .global CrossIn
  .hidden CrossIn
  .type CrossIn, %function
CrossIn:
  push {r4-r11, lr}
  ldr r4, [sp, #36]
  sub sp, sp, #8
  str r4, [sp]
  mov r4, #0x41
  mov r5, #0x51
  mov r6, #0x61
  mov r7, #0x71
  mov r8, #0x81
  mov r9, #0x91
  mov r10, #0xA1
  mov r11, #0xB1
  blx ip
  cmp r4, #0x41
  cmpeq r5, #0x51
  cmpeq r6, #0x61
  cmpeq r7, #0x71
  cmpeq r8, #0x81
  cmpeq r9, #0x91
  cmpeq r10, #0xA1
  cmpeq r11, #0xB1
  bicne sp, sp, #7
  bne ReportSpoiltRegister
  add sp, sp, #8
  pop {r4-r11, pc}
  .size CrossIn, . - CrossIn

  .global CallDevice
  .type CallDevice, %function
CallDevice:
  mov ip, r3
  b CrossIn
  .size CallDevice, . - CallDevice

@ Four words, then the function.
  .global CallDeviceWithFour
  .type CallDeviceWithFour, %function
CallDeviceWithFour:
  ldr ip, [sp]
  b CrossIn
  .size CallDeviceWithFour, . - CallDeviceWithFour

@ Out: ip points at a WayOut, whose first word is the function.
  .global CrossOut
  .hidden CrossOut
  .type CrossOut, %function
CrossOut:
  tst sp, #7
  ldreq pc, [ip]
  mov r0, ip
  bic sp, sp, #7
  b ReportMisalignedStack
  .size CrossOut, . - CrossOut

  .section .note.GNU-stack, "", %progbits
