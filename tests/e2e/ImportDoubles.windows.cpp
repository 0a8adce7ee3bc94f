#include "ImportDoubles.windows.h"

#include <winternl.h>

#include <cstring>
#include <stdexcept>

namespace e2e {

namespace {

constexpr ULONG LIBRARY_LOADED = 1;

template <class Function>
Function FromNtdll(const char* name) {
  const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(ntdll, name)));
}

void Put(ULONGLONG* slot, FARPROC function) {
  DWORD protection = 0;
  VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
  *slot = reinterpret_cast<ULONGLONG>(function);
  VirtualProtect(slot, sizeof *slot, protection, &protection);
}

}  // namespace

/// What the system tells of a library. Its headers do not declare this.
struct ImportDoubles::Notification {
  ULONG flags;
  const UNICODE_STRING* fullName;
  const UNICODE_STRING* baseName;
  void* image;
  ULONG imageSize;
};

ImportDoubles::ImportDoubles(std::wstring libraryName, std::vector<ImportDouble> doubles)
    : library(std::move(libraryName)), list(std::move(doubles)) {
  using Callback = void(CALLBACK*)(ULONG, const Notification*, void*);
  using Register = NTSTATUS(NTAPI*)(ULONG, Callback, void*, void**);
  const auto subscribe = FromNtdll<Register>("LdrRegisterDllNotification");
  if (subscribe == nullptr || subscribe(0, &ImportDoubles::OnLibrary, this, &registration) != 0) {
    throw std::runtime_error("this system does not tell of libraries that it loads");
  }
}

ImportDoubles::~ImportDoubles() {
  FromNtdll<NTSTATUS(NTAPI*)(void*)>("LdrUnregisterDllNotification")(registration);
}

void CALLBACK ImportDoubles::OnLibrary(ULONG reason, const Notification* notification, void* self) {
  const auto& doubles = *static_cast<const ImportDoubles*>(self);
  const std::wstring name(notification->baseName->Buffer,
                          notification->baseName->Length / sizeof(WCHAR));
  if (reason == LIBRARY_LOADED && name == doubles.library) {
    doubles.PutInto(static_cast<BYTE*>(notification->image));
  }
}

void ImportDoubles::PutInto(BYTE* image) const {
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(image + dos->e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* from =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(image + imports.VirtualAddress);
  for (; from->Name != 0; ++from) {
    const auto* name = reinterpret_cast<const ULONGLONG*>(image + from->OriginalFirstThunk);
    auto* slot = reinterpret_cast<ULONGLONG*>(image + from->FirstThunk);
    for (; *name != 0; ++name, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL64(*name)) {
        continue;
      }
      const auto* hint = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(image + *name);
      if (const FARPROC function = Find(reinterpret_cast<const char*>(hint->Name))) {
        Put(slot, function);
      }
    }
  }
}

FARPROC ImportDoubles::Find(const char* name) const {
  for (const ImportDouble& entry : list) {
    if (std::strcmp(entry.name, name) == 0) {
      return entry.function;
    }
  }
  return nullptr;
}

}  // namespace e2e
