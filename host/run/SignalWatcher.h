// Ctrl-C and its relatives.
#pragma once

#include <csignal>
#include <functional>
#include <thread>

#include "base/FileDescriptor.h"

namespace host {

/// Takes the signals that ask the program to stop or tell of a new terminal size, on a thread of
/// its own. Must be made before any other thread, as threads inherit that these signals are left to
/// it. A second request to stop ends the program at once.
class SignalWatcher {
 public:
  SignalWatcher();
  ~SignalWatcher();

  /// `onStop` and `onResize` are called on the watcher's thread from now on, once for a stop.
  void Start(std::function<void()> onStop, std::function<void()> onResize);

  /// Returns when no call is under way or will come.
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
