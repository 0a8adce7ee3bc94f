#include <windows.h>

#include <string>

extern "C" FARPROC WINAPI GetProcAddressW(HMODULE module, LPCWSTR name) {
  std::string narrow;
  for (; *name != 0; ++name) {
    if (*name > 0x7F) {
      SetLastError(ERROR_PROC_NOT_FOUND);
      return nullptr;
    }
    narrow += static_cast<char>(*name);
  }
  return GetProcAddress(module, narrow.c_str());
}
