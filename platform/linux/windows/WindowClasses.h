// Window classes.
#pragma once

#include <windows.h>

#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace handheld {

/// Compares names without regard to case. Classes live as long as the process.
class WindowClasses {
 public:
  static WindowClasses& Instance();

  struct Class {
    /// Folded to one letter case.
    std::u16string name;
    ATOM atom = 0;
    WNDPROC procedure = nullptr;
    HBRUSH background = nullptr;
  };

  /// Atom of the new class; 0 when the name is taken.
  ATOM Register(const WNDCLASSW& description);

  /// `name` is a text or an atom. No value for an unknown class.
  std::optional<Class> Find(LPCWSTR name) const;

 private:
  mutable std::mutex mutex;
  std::vector<Class> classes;
};

}  // namespace handheld
