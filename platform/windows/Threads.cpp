// Threads of the engine. It waits for their end while it is unloaded, but the system holds its
// loader lock then, so that no thread can begin or end. Therefore two worker threads run from the
// first use until this library is unloaded, and carry out one procedure after another. What they
// would load later is loaded before they start, as loading takes that lock as well.

#include <windows.h>

#include <atomic>
#include <iterator>

#include "Imaging.h"

// This file calls the system's own.
#undef CloseHandle
#undef CreateThread
#undef GetExitCodeThread
#undef SetThreadPriority

namespace {

/// One for the reader, one for the redraw.
constexpr int WORKER_COUNT = 2;

/// The desktop's number for each of the handheld's eight priorities.
constexpr int PRIORITIES[] = {THREAD_PRIORITY_TIME_CRITICAL, THREAD_PRIORITY_HIGHEST,
                              THREAD_PRIORITY_ABOVE_NORMAL,  THREAD_PRIORITY_NORMAL,
                              THREAD_PRIORITY_BELOW_NORMAL,  THREAD_PRIORITY_LOWEST,
                              THREAD_PRIORITY_LOWEST,        THREAD_PRIORITY_IDLE};

class Worker {
 public:
  /// Starts the thread and waits until it runs; it can be lent at any time from then on.
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

  /// Ends the thread before its code is unloaded. It is idle and holds no lock.
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

  /// Event that is set when the procedure has returned; null when the worker is lent already.
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
  /// When a process ends, its threads end before its libraries are told.
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

  /// After the event is set the library, and this thread with it, may be unloaded: from there on it
  /// takes no lock, not even one of the system. So another thread closes the event.
  void Return() {
    lentAs = nullptr;
    SetEvent(done);
    isLent = false;
  }

  /// Waits for a worker that is about to return.
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
    if (!StartAll()) {
      return nullptr;
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
  bool StartAll() {
    if (!isImagingLoaded) {
      handheld::LoadImaging();
      isImagingLoaded = true;
    }
    for (Worker& worker : workers) {
      if (!worker.IsStarted() && !worker.Start()) {
        return false;
      }
    }
    return true;
  }

  bool isImagingLoaded = false;
  Worker workers[WORKER_COUNT];
};

Workers theWorkers;

}  // namespace

extern "C" {

HANDLE WINAPI HandheldCreateThread(SECURITY_ATTRIBUTES*, SIZE_T, LPTHREAD_START_ROUTINE procedure,
                                   LPVOID argument, DWORD, LPDWORD) {
  return theWorkers.Lend(procedure, argument);
}

/// Reports 0 for a procedure that has returned, as all of the engine do.
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
