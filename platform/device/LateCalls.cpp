// Functions that not every device has: those of later system versions, and those of parts that a
// maker may leave out of the system. A library that imports them by name does not load where one is
// missing. Here a missing function answers with its failure, and the engine goes on without it.
//
// All are looked up at start-up, by one thread.

#include <mmsystem.h>
#include <objbase.h>
#include <pm.h>
#include <windows.h>

namespace {

constexpr LPCWSTR COREDLL = TEXT("coredll.dll");
constexpr LPCWSTR OLE32 = TEXT("ole32.dll");

/// Null when the device lacks the function or its library. The library stays loaded until the
/// process ends: an entry point, which this runs in, must not unload others.
template <class Function>
Function* FindLate(LPCWSTR library, LPCWSTR name) {
  const HMODULE module = LoadLibraryW(library);
  const FARPROC found = module != nullptr ? GetProcAddressW(module, name) : nullptr;
  return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(found));
}

#define LATE(library, name) FindLate<decltype(name)>(library, TEXT(#name))

const auto ALPHA_BLEND = LATE(COREDLL, AlphaBlend);
const auto GET_SYSTEM_POWER_STATUS_EX = LATE(COREDLL, GetSystemPowerStatusEx);
const auto PLAY_SOUND = LATE(COREDLL, PlaySoundW);
const auto RELEASE_POWER_REQUIREMENT = LATE(COREDLL, ReleasePowerRequirement);
const auto SET_POWER_REQUIREMENT = LATE(COREDLL, SetPowerRequirement);
const auto CO_CREATE_INSTANCE = LATE(OLE32, CoCreateInstance);
const auto CO_INITIALIZE_EX = LATE(OLE32, CoInitializeEx);
const auto CO_UNINITIALIZE = LATE(OLE32, CoUninitialize);

#undef LATE

}  // namespace

extern "C" {

/// Came with Windows CE 5.0, as a part of its own. Without it nothing is drawn.
BOOL WINAPI AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, BLENDFUNCTION blend) {
  return ALPHA_BLEND != nullptr ? ALPHA_BLEND(dc, x, y, width, height, source, sourceX, sourceY,
                                              sourceWidth, sourceHeight, blend)
                                : FALSE;
}

/// Missing from systems without a battery driver.
BOOL WINAPI GetSystemPowerStatusEx(SYSTEM_POWER_STATUS_EX* status, BOOL update) {
  return GET_SYSTEM_POWER_STATUS_EX != nullptr ? GET_SYSTEM_POWER_STATUS_EX(status, update) : FALSE;
}

/// Missing from systems without sound.
BOOL WINAPI PlaySoundW(LPCWSTR sound, HMODULE module, DWORD flags) {
  return PLAY_SOUND != nullptr ? PLAY_SOUND(sound, module, flags) : FALSE;
}

// Missing from systems without the power manager.

DWORD WINAPI ReleasePowerRequirement(HANDLE requirement) {
  return RELEASE_POWER_REQUIREMENT != nullptr ? RELEASE_POWER_REQUIREMENT(requirement)
                                              : ERROR_PROC_NOT_FOUND;
}

HANDLE WINAPI SetPowerRequirement(LPVOID device, CEDEVICE_POWER_STATE state, ULONG flags,
                                  LPVOID systemState, ULONG stateFlags) {
  return SET_POWER_REQUIREMENT != nullptr
             ? SET_POWER_REQUIREMENT(device, state, flags, systemState, stateFlags)
             : nullptr;
}

// Missing from systems without COM. Without it no picture is decoded.

HRESULT WINAPI CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID iid,
                                LPVOID* object) {
  if (CO_CREATE_INSTANCE == nullptr) {
    *object = nullptr;
    return REGDB_E_CLASSNOTREG;
  }
  return CO_CREATE_INSTANCE(clsid, outer, context, iid, object);
}

HRESULT WINAPI CoInitializeEx(LPVOID unused, DWORD options) {
  return CO_INITIALIZE_EX != nullptr ? CO_INITIALIZE_EX(unused, options) : E_NOTIMPL;
}

void WINAPI CoUninitialize() {
  if (CO_UNINITIALIZE != nullptr) {
    CO_UNINITIALIZE();
  }
}

}  // extern "C"
