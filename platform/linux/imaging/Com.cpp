#include <objbase.h>

namespace handheld {

namespace {

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);
constexpr HRESULT RPC_E_CHANGED_MODE = static_cast<HRESULT>(0x80010106);

/// Starts of the library on this thread that are not undone, and their threading model.
thread_local int starts = 0;
thread_local DWORD startOptions = 0;

}  // namespace

extern "C" {

HRESULT WINAPI CoInitializeEx(LPVOID unused, DWORD options) {
  if (unused != nullptr) {
    return E_INVALIDARG;
  }
  if (starts > 0 && startOptions != options) {
    return RPC_E_CHANGED_MODE;
  }
  startOptions = options;
  return starts++ == 0 ? S_OK : S_FALSE;
}

void WINAPI CoUninitialize() {
  if (starts > 0) {
    --starts;
  }
}

}  // extern "C"

}  // namespace handheld
