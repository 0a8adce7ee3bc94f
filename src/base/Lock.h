#pragma once

#include <windows.h>

namespace ferolin {

/// A recursive mutex.
class Lock {
 public:
  Lock() { InitializeCriticalSection(&section); }
  ~Lock() { DeleteCriticalSection(&section); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

  void Enter() { EnterCriticalSection(&section); }
  void Leave() { LeaveCriticalSection(&section); }

 private:
  CRITICAL_SECTION section;
};

/// Holds a lock for a scope.
class LockGuard {
 public:
  explicit LockGuard(Lock& guarded) : lock(guarded) { lock.Enter(); }
  ~LockGuard() { lock.Leave(); }
  LockGuard(const LockGuard&) = delete;
  LockGuard& operator=(const LockGuard&) = delete;

 private:
  Lock& lock;
};

}  // namespace ferolin
