#include "windows/WindowClasses.h"

#include <algorithm>

#include "text/WideText.h"

namespace handheld {

namespace {

constexpr ATOM FIRST_ATOM = 0xC100;

}  // namespace

WindowClasses& WindowClasses::Instance() {
  static WindowClasses& classes = *new WindowClasses;
  return classes;
}

ATOM WindowClasses::Register(const WNDCLASSW& description) {
  const std::u16string name = FoldCase(description.lpszClassName);
  const std::lock_guard lock(mutex);
  if (std::any_of(classes.begin(), classes.end(),
                  [&name](const Class& known) { return known.name == name; })) {
    return 0;
  }
  const ATOM atom = static_cast<ATOM>(FIRST_ATOM + classes.size());
  classes.push_back({name, atom, description.lpfnWndProc, description.hbrBackground});
  return atom;
}

std::optional<WindowClasses::Class> WindowClasses::Find(LPCWSTR name) const {
  const auto number = reinterpret_cast<ULONG_PTR>(name);
  const bool isAtom = HIWORD(number) == 0 && number <= 0xFFFF;
  const std::u16string folded = isAtom ? std::u16string() : FoldCase(name);
  const std::lock_guard lock(mutex);
  for (const Class& known : classes) {
    if (isAtom ? known.atom == number : known.name == folded) {
      return known;
    }
  }
  return std::nullopt;
}

}  // namespace handheld
