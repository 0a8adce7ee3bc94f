#include <pthread.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <memory>
#include <mutex>
#include <new>

#include "core/Handles.h"
#include "core/LastError.h"

namespace handheld {

namespace {

constexpr int NORMAL_PRIORITY = 3;
/// Nice value for each priority of the device, 0 (most urgent) to 7 (only when idle).
constexpr std::array<int, 8> NICE_VALUES = {-15, -10, -5, 0, 5, 10, 15, 19};

/// A thread of the device. The running thread holds a reference, so it survives the closing of its
/// handle.
class Thread : public KernelObject {
 public:
  Thread(LPTHREAD_START_ROUTINE start, LPVOID startArgument)
      : procedure(start), argument(startArgument) {}

  void Run() {
    {
      const std::lock_guard lock(mutex);
      linuxId = static_cast<pid_t>(syscall(SYS_gettid));
      ApplyPriority();
    }
    const DWORD result = procedure(argument);
    {
      const std::lock_guard lock(mutex);
      linuxId = 0;
    }
    exitCode.store(result, std::memory_order_release);
  }

  void SetPriority(int newPriority) {
    const std::lock_guard lock(mutex);
    priority = newPriority;
    ApplyPriority();
  }

  /// STILL_ACTIVE until the procedure has returned.
  DWORD GetExitCode() const { return exitCode.load(std::memory_order_acquire); }

 private:
  /// Sets the nice value relative to the program's own. Best effort: a lower value takes
  /// privileges.
  void ApplyPriority() const {
    if (linuxId == 0 || priority == NORMAL_PRIORITY) {
      return;
    }
    const int own = getpriority(PRIO_PROCESS, static_cast<id_t>(getpid()));
    setpriority(PRIO_PROCESS, static_cast<id_t>(linuxId),
                own + NICE_VALUES[static_cast<std::size_t>(priority)]);
  }

  const LPTHREAD_START_ROUTINE procedure;
  const LPVOID argument;
  std::atomic<DWORD> exitCode{STILL_ACTIVE};
  std::mutex mutex;
  int priority = NORMAL_PRIORITY;
  /// 0 before the thread has started and after it has ended.
  pid_t linuxId = 0;
};

void* RunThread(void* argument) {
  const std::unique_ptr<std::shared_ptr<Thread>> thread(
      static_cast<std::shared_ptr<Thread>*>(argument));
  (*thread)->Run();
  return nullptr;
}

class ThreadAttributes {
 public:
  explicit ThreadAttributes(DWORD stackSize) {
    pthread_attr_init(&attributes);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    // Fails for sizes too small for Linux, which leaves the default.
    if (stackSize != 0) {
      pthread_attr_setstacksize(&attributes, stackSize);
    }
  }
  ~ThreadAttributes() { pthread_attr_destroy(&attributes); }
  ThreadAttributes(const ThreadAttributes&) = delete;
  ThreadAttributes& operator=(const ThreadAttributes&) = delete;

  const pthread_attr_t* Get() const { return &attributes; }

 private:
  pthread_attr_t attributes;
};

DWORD NextThreadId() {
  static std::atomic<DWORD> last{0};
  return ++last;
}

bool Start(const std::shared_ptr<Thread>& thread, DWORD stackSize) {
  const ThreadAttributes attributes(stackSize);
  auto own = std::make_unique<std::shared_ptr<Thread>>(thread);
  pthread_t started;
  if (pthread_create(&started, attributes.Get(), RunThread, own.get()) != 0) {
    return false;
  }
  // RunThread deletes it.
  static_cast<void>(own.release());
  return true;
}

}  // namespace

extern "C" {

HANDLE WINAPI CreateThread(SECURITY_ATTRIBUTES*, DWORD stackSize, LPTHREAD_START_ROUTINE procedure,
                           LPVOID argument, DWORD flags, LPDWORD threadId) {
  return Guarded<HANDLE>(nullptr, [&]() -> HANDLE {
    if (procedure == nullptr || flags != 0) {
      return Fail<HANDLE>(ERROR_INVALID_PARAMETER, nullptr);
    }
    const auto thread = std::make_shared<Thread>(procedure, argument);
    const HANDLE handle = HandleTable::Instance().Add(thread);
    if (threadId != nullptr) {
      *threadId = NextThreadId();
    }
    if (Start(thread, stackSize)) {
      return handle;
    }
    HandleTable::Instance().Close<Thread>(handle);
    return Fail<HANDLE>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
  });
}

BOOL WINAPI SetThreadPriority(HANDLE thread, int priority) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = HandleTable::Instance().Find<Thread>(thread);
    if (found == nullptr) {
      return Fail(ERROR_INVALID_HANDLE, FALSE);
    }
    if (priority < 0 || priority >= static_cast<int>(NICE_VALUES.size())) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    found->SetPriority(priority);
    return TRUE;
  });
}

BOOL WINAPI GetExitCodeThread(HANDLE thread, LPDWORD exitCode) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = HandleTable::Instance().Find<Thread>(thread);
    if (found == nullptr) {
      return Fail(ERROR_INVALID_HANDLE, FALSE);
    }
    if (exitCode == nullptr) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    *exitCode = found->GetExitCode();
    return TRUE;
  });
}

}  // extern "C"

}  // namespace handheld
