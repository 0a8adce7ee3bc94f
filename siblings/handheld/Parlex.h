// Export of the handheld's library for messages.
#pragma once

#include <windows.h>

extern "C" {

/// Hands a message (in the device's ANSI code page) for a phone number to the system, which sends it
/// when it can. Does nothing where the system has no messaging. For any thread.
void WINAPI SendParlex(LPCWSTR recipient, LPCSTR message);
}
