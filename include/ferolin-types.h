/* Types of ferolin.h on Linux, where no windows.h of a system has them. C99 and C++. */
#pragma once

#include <stdint.h> /* C has no <cstdint>. NOLINT(modernize-deprecated-headers) */

/* Literals for wide text, TEXT("COM1"). With -std=c99 there is no such literal; -std=gnu99 has it. */
#ifndef TEXT
#define TEXT(literal) u##literal
#endif

/* Empty here: functions are called the ordinary way. */
#ifndef WINAPI
#define WINAPI
#endif

/* A unit of wide text, UTF-16. */
#ifdef __cplusplus
typedef char16_t WCHAR;
#else
typedef uint_least16_t WCHAR;
#endif
typedef const WCHAR* LPCWSTR;

typedef uint32_t DWORD;
typedef unsigned int UINT;

/* A window of the device, see ferolin_create_window. */
typedef struct HWND__* HWND;
