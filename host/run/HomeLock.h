// One program at a time in a home folder.
#pragma once

#include <string>

#include "base/FileDescriptor.h"

namespace host {

/// Holds the lock of a home folder while it lives: two programs would overwrite each other's trip
/// and settings. The system releases it when the program ends, however it ends.
class HomeLock {
 public:
  /// Throws HostError when another program holds the lock. Goes without one where the file system
  /// has none.
  explicit HomeLock(const std::string& home);

 private:
  FileDescriptor file;
};

}  // namespace host
