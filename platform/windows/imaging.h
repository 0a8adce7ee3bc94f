// The device's imaging library, which the desktop lacks; implemented by Imaging.cpp.
#pragma once

#include <objbase.h>

#include "../api/imaging.h"

/// Makes the imaging factory; passes all other classes on to the system.
extern "C" HRESULT WINAPI HandheldCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context,
                                                 REFIID iid, LPVOID* object);
#define CoCreateInstance HandheldCreateInstance
