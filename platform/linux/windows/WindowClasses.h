// Window classes.
#pragma once

#include <windows.h>

#include <map>
#include <mutex>
#include <string>

namespace handheld {

/// Compares names without regard to case. Classes live as long as the process.
class WindowClasses {
 public:
  static WindowClasses& Instance();

  /// Atom of the new class; 0 when the name is taken.
  ATOM Register(const std::u16string& name, WNDPROC procedure);

  /// `name` is a text or an atom. Null for an unknown class.
  WNDPROC Find(LPCWSTR name) const;

 private:
  struct Class {
    ATOM atom;
    WNDPROC procedure;
  };

  mutable std::mutex mutex;
  std::map<std::u16string, Class> classes;
};

}  // namespace handheld
