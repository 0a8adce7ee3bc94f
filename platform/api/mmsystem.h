// Sounds of the device.
#pragma once

#include <windef.h>

constexpr DWORD SND_ASYNC = 0x0001;
constexpr DWORD SND_NOWAIT = 0x2000;
constexpr DWORD SND_FILENAME = 0x20000;

extern "C" {
BOOL WINAPI PlaySoundW(LPCWSTR sound, HMODULE module, DWORD flags);
}
