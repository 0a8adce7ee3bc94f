// Component Object Model: start-up of the library on a thread, creation of objects.
#pragma once

#include <windef.h>

struct GUID {
  DWORD Data1;
  WORD Data2;
  WORD Data3;
  BYTE Data4[8];
};
static_assert(sizeof(GUID) == 16);

using IID = GUID;
using CLSID = GUID;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

constexpr HRESULT S_OK = 0;
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001U);
constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002U);
constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003U);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057U);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000EU);
constexpr HRESULT REGDB_E_CLASSNOTREG = static_cast<HRESULT>(0x80040154U);

constexpr bool SUCCEEDED(HRESULT result) {
  return result >= 0;
}
constexpr bool FAILED(HRESULT result) {
  return result < 0;
}

/// Base of all interfaces: reference counting. The last Release frees the object.
struct IUnknown {
  virtual HRESULT WINAPI QueryInterface(REFIID iid, LPVOID* object) = 0;
  virtual ULONG WINAPI AddRef() = 0;
  virtual ULONG WINAPI Release() = 0;

 protected:
  ~IUnknown() = default;
};

constexpr DWORD COINIT_MULTITHREADED = 0;
constexpr DWORD CLSCTX_INPROC_SERVER = 1;

extern "C" {
/// `unused` must be null.
HRESULT WINAPI CoInitializeEx(LPVOID unused, DWORD options);
void WINAPI CoUninitialize();
HRESULT WINAPI CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID iid,
                                LPVOID* object);
}
