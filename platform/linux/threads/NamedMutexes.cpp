#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "core/Handles.h"
#include "core/LastError.h"

namespace handheld {

namespace {

/// Only its existence matters: nothing waits for it.
class NamedMutex : public KernelObject {};

/// Each program of this home is a device of its own, so names are those of the process.
struct NamedMutexes {
  std::mutex mutex;
  std::map<std::u16string, std::weak_ptr<NamedMutex>> known;
};

NamedMutexes& TheNamedMutexes() {
  static NamedMutexes& mutexes = *new NamedMutexes;
  return mutexes;
}

}  // namespace

extern "C" HANDLE WINAPI CreateMutexW(SECURITY_ATTRIBUTES*, BOOL, LPCWSTR name) {
  return Guarded<HANDLE>(nullptr, [&]() -> HANDLE {
    if (name == nullptr) {
      return Fail<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
    }
    NamedMutexes& mutexes = TheNamedMutexes();
    const std::lock_guard lock(mutexes.mutex);
    std::weak_ptr<NamedMutex>& entry = mutexes.known[name];
    std::shared_ptr<NamedMutex> existing = entry.lock();
    SetError(existing != nullptr ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    if (existing == nullptr) {
      existing = std::make_shared<NamedMutex>();
      entry = existing;
    }
    return HandleTable::Instance().Add(std::move(existing));
  });
}

}  // namespace handheld
