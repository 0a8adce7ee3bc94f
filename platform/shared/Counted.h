#pragma once

#include <imaging.h>

#include <atomic>

namespace handheld {

/// Reference counting of an object with one interface. It starts with one reference.
template <class Interface>
class Counted : public Interface {
 public:
  virtual ~Counted() = default;

  HRESULT WINAPI QueryInterface(REFIID, LPVOID* object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }

  ULONG WINAPI AddRef() override { return ++references; }

  ULONG WINAPI Release() override {
    const ULONG left = --references;
    if (left == 0) {
      delete this;
    }
    return left;
  }

 private:
  std::atomic<ULONG> references = 1;
};

}  // namespace handheld
