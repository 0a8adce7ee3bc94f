// A serial line inside the machine: the host writes, the engine reads.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/FileDescriptor.h"

namespace host {

class PseudoTerminal {
 public:
  /// Throws HostError when it cannot be made.
  PseudoTerminal();

  /// Path of the engine's end.
  const std::string& GetDevice() const { return device; }

  /// Writes as many bytes as fit, without waiting. Returns their number.
  std::size_t Write(std::string_view bytes) const;

  /// Bytes written and not read yet; 0 when the system does not tell.
  int CountUnread() const;

 private:
  FileDescriptor master;
  /// Keeps the line open and in raw mode while the engine opens and closes its end.
  FileDescriptor slave;
  std::string device;
};

}  // namespace host
