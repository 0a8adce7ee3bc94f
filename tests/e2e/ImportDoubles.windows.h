#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace e2e {

/// A function that a library gets instead of the system's of that name.
struct ImportDouble {
  const char* name;
  FARPROC function;
};

template <class Function>
FARPROC Erase(Function* function) {
  return reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(function));
}

/// While it lives, every library of this file name that the process loads calls the doubles. They
/// stand in its import table before its entry function runs, so that the system itself and all
/// other libraries keep the real ones.
class ImportDoubles {
 public:
  ImportDoubles(std::wstring libraryName, std::vector<ImportDouble> doubles);
  ~ImportDoubles();
  ImportDoubles(const ImportDoubles&) = delete;
  ImportDoubles& operator=(const ImportDoubles&) = delete;

 private:
  struct Notification;
  static void CALLBACK OnLibrary(ULONG reason, const Notification* notification, void* self);
  void PutInto(BYTE* image) const;
  FARPROC Find(const char* name) const;

  std::wstring library;
  std::vector<ImportDouble> list;
  void* registration = nullptr;
};

}  // namespace e2e
