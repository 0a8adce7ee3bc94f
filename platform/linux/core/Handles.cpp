#include "core/Handles.h"

#include <utility>

#include "core/LastError.h"
#include "handheld.h"

namespace handheld {

HandleTable& HandleTable::Instance() {
  // Never destroyed: threads that outlive main() may still close their handles.
  static HandleTable& table = *new HandleTable;
  return table;
}

HANDLE HandleTable::Add(std::shared_ptr<Object> object) {
  const std::lock_guard lock(mutex);
  lastNumber += 4;
  objects.emplace(lastNumber, std::move(object));
  return reinterpret_cast<HANDLE>(lastNumber);
}

std::shared_ptr<Object> HandleTable::FindObject(HANDLE handle) const {
  const std::lock_guard lock(mutex);
  const auto found = objects.find(reinterpret_cast<std::uintptr_t>(handle));
  return found == objects.end() ? nullptr : found->second;
}

bool HandleTable::Remove(HANDLE handle) {
  std::shared_ptr<Object> object;
  {
    const std::lock_guard lock(mutex);
    const auto found = objects.find(reinterpret_cast<std::uintptr_t>(handle));
    // Another thread may have closed the handle first.
    if (found == objects.end()) {
      return false;
    }
    object = std::move(found->second);
    objects.erase(found);
  }
  object->HandleClosed();
  return true;
}

int HandleTable::GetCount() const {
  const std::lock_guard lock(mutex);
  return static_cast<int>(objects.size());
}

int HandlesAlive() {
  return HandleTable::Instance().GetCount();
}

extern "C" BOOL WINAPI CloseHandle(HANDLE object) {
  return Guarded<BOOL>(FALSE, [&] {
    return HandleTable::Instance().Close<KernelObject>(object) ? TRUE
                                                               : Fail(ERROR_INVALID_HANDLE, FALSE);
  });
}

}  // namespace handheld
