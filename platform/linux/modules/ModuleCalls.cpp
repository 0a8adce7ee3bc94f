#include "core/LastError.h"
#include "files/Paths.h"
#include "handheld.h"
#include "modules/Modules.h"
#include "text/WideText.h"

namespace handheld {

void RegisterModuleEntry(ModuleEntry entry) {
  Modules::Instance().RegisterEntry(entry);
}

void UnregisterModuleEntry(ModuleEntry entry) {
  Modules::Instance().UnregisterEntry(entry);
}

void SetModuleDirectory(const std::string& path) {
  Modules::Instance().SetDirectory(path);
}

void SetLibraryDirectory(const std::string& path) {
  Modules::Instance().SetLibraryDirectory(path);
}

extern "C" {

HMODULE WINAPI LoadLibraryW(LPCWSTR fileName) {
  return Guarded<HMODULE>(nullptr, [&] {
    if (WideLength(fileName) == 0) {
      return Fail<HMODULE>(ERROR_MOD_NOT_FOUND, nullptr);
    }
    return Modules::Instance().Load(LinuxPath(WideText(fileName)));
  });
}

FARPROC WINAPI GetProcAddressW(HMODULE module, LPCWSTR name) {
  return Guarded<FARPROC>(nullptr, [&] {
    // Small numbers in place of a name are ordinals. Linux libraries have none.
    if (reinterpret_cast<ULONG_PTR>(name) <= 0xFFFF) {
      return Fail<FARPROC>(ERROR_PROC_NOT_FOUND, nullptr);
    }
    return Modules::Instance().FindSymbol(module, Utf8FromWide(name));
  });
}

BOOL WINAPI FreeLibrary(HMODULE module) {
  return Guarded<BOOL>(FALSE, [&] {
    return Modules::Instance().Free(module) ? TRUE : Fail(ERROR_INVALID_HANDLE, FALSE);
  });
}

DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR fileName, DWORD size) {
  return Guarded<DWORD>(0, [&]() -> DWORD {
    const std::u16string path = DevicePath(Modules::Instance().GetPath(module));
    if (path.empty()) {
      return Fail<DWORD>(ERROR_MOD_NOT_FOUND, 0);
    }
    if (fileName == nullptr || size == 0) {
      return Fail<DWORD>(ERROR_INSUFFICIENT_BUFFER, 0);
    }
    const std::size_t length = path.copy(fileName, size - 1);
    fileName[length] = 0;
    // A path that does not fit is cut; the result is then the size of the buffer.
    if (length < path.size()) {
      return Fail(ERROR_INSUFFICIENT_BUFFER, size);
    }
    return static_cast<DWORD>(length);
  });
}

}  // extern "C"

}  // namespace handheld
