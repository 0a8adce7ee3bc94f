// Locale and code pages of the device.
#pragma once

#include <windef.h>

using LCID = DWORD;
using LCTYPE = DWORD;

constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
/// Three-letter abbreviation of the language, such as "ENU" or "RUS".
constexpr LCTYPE LOCALE_SABBREVLANGNAME = 3;
/// The device's ANSI code page.
constexpr UINT CP_ACP = 0;

extern "C" {
int WINAPI GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR data, int size);
int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR wide,
                               int wideSize);
int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int wideLength, LPSTR text,
                               int size, LPCSTR defaultChar, BOOL* usedDefaultChar);
}
