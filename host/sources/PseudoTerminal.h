// A serial line inside the machine: what the host writes, the engine reads from a port.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/FileDescriptor.h"

namespace host {

class PseudoTerminal {
 public:
  /// Throws HostError when the system gives none.
  PseudoTerminal();

  /// Path of the end that the engine opens.
  const std::string& GetDevice() const { return device; }

  /// Writes what the line has room for, never waiting. Returns the number of bytes written.
  std::size_t Write(std::string_view bytes) const;

  /// Bytes that were written and not read yet, as far as the system tells.
  int CountUnread() const;

 private:
  FileDescriptor master;
  /// Held open, so that the line stays up and raw while the engine opens and closes its end.
  FileDescriptor slave;
  std::string device;
};

}  // namespace host
