// The device's imaging library, which the desktop does not have: Imaging.cpp makes its objects.
#pragma once

#include <objbase.h>

#include "../api/imaging.h"

/// Knows the imaging factory; all other classes are the system's affair.
extern "C" HRESULT WINAPI HandheldCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context,
                                                 REFIID iid, LPVOID* object);
#define CoCreateInstance HandheldCreateInstance
