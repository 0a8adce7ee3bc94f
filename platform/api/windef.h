// Basic types of the device's API.
#pragma once

#include <cstddef>
#include <cstdint>

#define WINAPI
#define CALLBACK

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using INT = int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using ULONGLONG = std::uint64_t;
using FLOAT = float;
using WCHAR = char16_t;
using CHAR = char;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPDWORD = DWORD*;
using UINT_PTR = std::uintptr_t;
using ULONG_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using ATOM = WORD;
using HRESULT = LONG;
using COLORREF = DWORD;

/// Objects of the system. "None" is INVALID_HANDLE_VALUE for files and threads, null for all
/// others.
using HANDLE = void*;
using HWND = struct HWND__*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;
using FARPROC = INT (*)();

/// Literals for wide text. Every literal handed to a wide call is written TEXT("...").
#define TEXT(literal) u##literal

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;
constexpr int MAX_PATH = 260;

struct POINT {
  LONG x;
  LONG y;
};

struct SIZE {
  LONG cx;
  LONG cy;
};

/// `right` and `bottom` are exclusive.
struct RECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};

constexpr WORD LOWORD(ULONG_PTR value) {
  return static_cast<WORD>(value & 0xFFFF);
}
constexpr WORD HIWORD(ULONG_PTR value) {
  return static_cast<WORD>((value >> 16) & 0xFFFF);
}
