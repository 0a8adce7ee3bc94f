// An open file of the system.
#pragma once

#include <unistd.h>

#include <utility>

namespace host {

/// Owns a file descriptor; -1 is none.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int toOwn) : descriptor(toOwn) {}
  FileDescriptor(FileDescriptor&& other) noexcept
      : descriptor(std::exchange(other.descriptor, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(descriptor, other.descriptor);
    return *this;
  }
  ~FileDescriptor() {
    if (descriptor >= 0) {
      close(descriptor);
    }
  }

  int Get() const { return descriptor; }
  bool IsOpen() const { return descriptor >= 0; }
  /// Its new owner closes it.
  int Release() { return std::exchange(descriptor, -1); }

 private:
  int descriptor = -1;
};

}  // namespace host
