// One program at a time in a home folder.
#pragma once

#include <sys/stat.h>

#include <string>

#include "base/FileDescriptor.h"

namespace host {

/// Holds the lock of a home folder while it lives: two programs would overwrite each other's trips
/// and settings. The system releases it when the program ends, however it ends. Another program
/// calls the one that holds the lock by touching its file.
class HomeLock {
 public:
  /// Goes without a lock where the file system has none.
  explicit HomeLock(const std::string& home);

  /// Whether another program holds the lock.
  bool IsElsewhere() const { return isElsewhere; }

  /// Calls the program that holds the lock to show its window. False when it has none.
  bool CallWindow();

  // For the program that holds the lock.

  /// Tells others that there is a window.
  void NoteWindow();
  /// Whether the window was called since the last time.
  bool TakeCall();

 private:
  void SetSize(off_t size);
  timespec GetTime() const;

  FileDescriptor file;
  bool isElsewhere;
  /// Time of the file.
  timespec lastCall = {};
};

}  // namespace host
