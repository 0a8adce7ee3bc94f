// Handles of the device: files, ports, searches, threads and power requirements share one table.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

namespace handheld {

/// What a handle stands for. Calls that are under way hold a reference, so that an object outlives
/// the closing of its handle until the last of them has returned.
class Object {
 public:
  virtual ~Object() = default;

  /// Called once when the handle is closed, by the closing thread: ends calls that wait inside the
  /// object.
  virtual void HandleClosed() {}
};

/// Objects that CloseHandle closes; each of the others has a closing call of its own.
class KernelObject : public Object {};

/// Bytes to read and write. All calls may come from several threads at once.
class Stream : public KernelObject {
 public:
  /// Read and Write return an error code (ERROR_SUCCESS is none) and set `count` to the bytes
  /// moved.
  virtual DWORD Read(void* buffer, DWORD size, DWORD& count) = 0;
  virtual DWORD Write(const void* data, DWORD size, DWORD& count) = 0;
  virtual DWORD Flush() = 0;
};

/// The one table of open handles. No number is used twice, so a stale handle stays invalid.
class HandleTable {
 public:
  static HandleTable& Instance();

  HANDLE Add(std::shared_ptr<Object> object);

  /// Null when the handle is unknown or stands for something else.
  template <class Kind>
  std::shared_ptr<Kind> Find(HANDLE handle) const {
    return std::dynamic_pointer_cast<Kind>(FindObject(handle));
  }

  /// Closes a handle of this kind. False when it is unknown or of another kind.
  template <class Kind>
  bool Close(HANDLE handle) {
    return Find<Kind>(handle) != nullptr && Remove(handle);
  }

  int GetCount() const;

 private:
  std::shared_ptr<Object> FindObject(HANDLE handle) const;
  bool Remove(HANDLE handle);

  mutable std::mutex mutex;
  std::unordered_map<std::uintptr_t, std::shared_ptr<Object>> objects;
  std::uintptr_t lastNumber = 0x100;
};

}  // namespace handheld
