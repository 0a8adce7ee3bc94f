// Ctrl-C and other signals.
#pragma once

#include <csignal>
#include <functional>
#include <thread>

#include "base/FileDescriptor.h"

namespace host {

/// Receives, on a thread of its own, the signals that ask the program to stop or tell a new
/// terminal size. Make it before any other thread: threads inherit that these signals are blocked.
/// A second request to stop ends the program at once.
class SignalWatcher {
 public:
  SignalWatcher();
  ~SignalWatcher();

  /// Calls `onStop` and `onResize` on the watcher's thread from now on, `onStop` at most once.
  void Start(std::function<void()> onStop, std::function<void()> onResize);

  /// Ends the calls; none is under way when it returns.
  void Stop();

 private:
  void Run();
  void Take(int signal);

  FileDescriptor signals;
  FileDescriptor stopEvent;
  std::function<void()> stop;
  std::function<void()> resize;
  bool isStopping = false;
  std::thread thread;
};

}  // namespace host
