#include "windows/WindowClasses.h"

#include "text/WideText.h"

namespace handheld {

namespace {

constexpr ATOM FIRST_ATOM = 0xC100;

}  // namespace

WindowClasses& WindowClasses::Instance() {
  static WindowClasses& classes = *new WindowClasses;
  return classes;
}

ATOM WindowClasses::Register(const std::u16string& name, WNDPROC procedure) {
  const std::lock_guard lock(mutex);
  const ATOM atom = static_cast<ATOM>(FIRST_ATOM + classes.size());
  return classes.emplace(FoldCase(name), Class{atom, procedure}).second ? atom : ATOM{0};
}

WNDPROC WindowClasses::Find(LPCWSTR name) const {
  const auto number = reinterpret_cast<ULONG_PTR>(name);
  const bool isAtom = HIWORD(number) == 0 && number <= 0xFFFF;
  const std::u16string folded = isAtom ? std::u16string() : FoldCase(name);
  const std::lock_guard lock(mutex);
  for (const auto& [className, entry] : classes) {
    if (isAtom ? entry.atom == number : className == folded) {
      return entry.procedure;
    }
  }
  return nullptr;
}

}  // namespace handheld
