// Classes that windows are made from.
#pragma once

#include <windows.h>

#include <map>
#include <mutex>
#include <string>

namespace handheld {

/// Names are taken without regard to case. Classes stay for the life of the process.
class WindowClasses {
 public:
  static WindowClasses& Instance();

  /// The class's atom; 0 when the name is taken.
  ATOM Register(const std::u16string& name, WNDPROC procedure);

  /// `name` is a text or an atom in its place. Null when there is no such class.
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
