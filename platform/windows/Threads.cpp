// Threads of the engine. It waits for their end while the system unloads it, but the system lets no thread begin or end
// just then: it tells all libraries of that, one at a time. So the engine's threads are lent: two of the system's run from
// the first one's start until this library goes, and carry out one procedure after another.

#include <windows.h>

#include <atomic>
#include <iterator>

// Here the system's own calls are meant.
#undef CloseHandle
#undef CreateThread
#undef GetExitCodeThread
#undef SetThreadPriority

namespace {

/// The reader's and one for a frame.
constexpr int WORKER_COUNT = 2;

/// The desktop's number for each of the handheld's eight priorities.
constexpr int PRIORITIES[] = {THREAD_PRIORITY_TIME_CRITICAL, THREAD_PRIORITY_HIGHEST,
                              THREAD_PRIORITY_ABOVE_NORMAL,  THREAD_PRIORITY_NORMAL,
                              THREAD_PRIORITY_BELOW_NORMAL,  THREAD_PRIORITY_LOWEST,
                              THREAD_PRIORITY_LOWEST,        THREAD_PRIORITY_IDLE};

class Worker {
 public:
  /// Waits until the thread runs, so that it can be lent at any time from then on.
  bool Start() {
    const HANDLE started = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    wakeUp = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    done = started;
    thread = CreateThread(nullptr, 0, &Worker::Run, this, 0, nullptr);
    const bool runs = thread != nullptr && WaitForSingleObject(started, INFINITE) == WAIT_OBJECT_0;
    CloseHandle(started);
    done = nullptr;
    return runs;
  }

  /// It is parked or about to be, in no lock and with no work, and must be gone before its code is.
  void End() {
    if (thread != nullptr) {
      TerminateThread(thread, 0);
      WaitForSingleObject(thread, INFINITE);
      CloseDone();
      CloseHandle(thread);
      CloseHandle(wakeUp);
    }
  }

  bool IsStarted() const { return thread != nullptr; }

  /// The event that is set when the procedure has returned; null when the worker is lent already.
  HANDLE Lend(LPTHREAD_START_ROUTINE wanted, LPVOID itsArgument) {
    if (!Take()) {
      return nullptr;
    }
    CloseDone();
    const HANDLE self = GetCurrentProcess();
    const HANDLE handle = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (handle == nullptr ||
        !DuplicateHandle(self, handle, self, &done, 0, FALSE, DUPLICATE_SAME_ACCESS)) {
      isLent = false;
      return nullptr;
    }
    SetThreadPriority(thread, THREAD_PRIORITY_NORMAL);
    lentAs = handle;
    procedure = wanted;
    argument = itsArgument;
    SetEvent(wakeUp);
    return handle;
  }

  bool IsLentAs(HANDLE handle) const { return isLent && lentAs == handle; }
  /// Threads of a process that ends are gone before its libraries are told.
  bool IsGone() const { return WaitForSingleObject(thread, 0) == WAIT_OBJECT_0; }
  BOOL SetPriority(int priority) { return SetThreadPriority(thread, priority); }

 private:
  static DWORD WINAPI Run(LPVOID self) {
    Worker& worker = *static_cast<Worker*>(self);
    SetEvent(worker.done);
    while (WaitForSingleObject(worker.wakeUp, INFINITE) == WAIT_OBJECT_0) {
      worker.procedure(worker.argument);
      worker.Return();
    }
    return 0;
  }

  /// Once the event is set the library may go, and this thread with it: what it does from there on takes no lock, not even
  /// one of the system's. So the event is closed by others.
  void Return() {
    lentAs = nullptr;
    SetEvent(done);
    isLent = false;
  }

  /// A worker that is about to return is waited for.
  bool Take() {
    bool isFree = false;
    while (!isLent.compare_exchange_strong(isFree, true)) {
      if (lentAs != nullptr) {
        return false;
      }
      isFree = false;
      SwitchToThread();
    }
    return true;
  }

  void CloseDone() {
    if (done != nullptr) {
      CloseHandle(done);
      done = nullptr;
    }
  }

  HANDLE thread = nullptr;
  HANDLE wakeUp = nullptr;
  HANDLE done = nullptr;
  std::atomic<HANDLE> lentAs = nullptr;
  std::atomic<bool> isLent = false;
  LPTHREAD_START_ROUTINE procedure = nullptr;
  LPVOID argument = nullptr;
};

class Workers {
 public:
  ~Workers() {
    for (Worker& worker : workers) {
      worker.End();
    }
  }

  HANDLE Lend(LPTHREAD_START_ROUTINE procedure, LPVOID argument) {
    for (Worker& worker : workers) {
      if (!worker.IsStarted() && !worker.Start()) {
        return nullptr;
      }
    }
    for (Worker& worker : workers) {
      if (const HANDLE handle = worker.Lend(procedure, argument); handle != nullptr) {
        return handle;
      }
    }
    SetLastError(ERROR_MAX_THRDS_REACHED);
    return nullptr;
  }

  Worker* Find(HANDLE handle) {
    for (Worker& worker : workers) {
      if (worker.IsLentAs(handle)) {
        return &worker;
      }
    }
    return nullptr;
  }

 private:
  Worker workers[WORKER_COUNT];
};

Workers theWorkers;

}  // namespace

extern "C" {

HANDLE WINAPI HandheldCreateThread(SECURITY_ATTRIBUTES*, SIZE_T, LPTHREAD_START_ROUTINE procedure,
                                   LPVOID argument, DWORD, LPDWORD) {
  return theWorkers.Lend(procedure, argument);
}

/// A procedure that has returned has done so with 0: the engine's all do.
BOOL WINAPI HandheldGetExitCodeThread(HANDLE thread, LPDWORD exitCode) {
  const DWORD state = WaitForSingleObject(thread, 0);
  if (state == WAIT_FAILED) {
    return FALSE;
  }
  const Worker* const worker = theWorkers.Find(thread);
  const bool isRunning = state == WAIT_TIMEOUT && (worker == nullptr || !worker->IsGone());
  *exitCode = isRunning ? STILL_ACTIVE : 0;
  return TRUE;
}

BOOL WINAPI HandheldSetThreadPriority(HANDLE thread, int priority) {
  if (priority < 0 || priority >= static_cast<int>(std::size(PRIORITIES))) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  Worker* const worker = theWorkers.Find(thread);
  return worker == nullptr || worker->SetPriority(PRIORITIES[priority]);
}

}  // extern "C"
