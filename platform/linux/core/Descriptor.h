// Owner of a Linux file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace handheld {

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int opened) : number(opened) {}
  Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number, other.number);
    return *this;
  }
  ~Descriptor() {
    if (number >= 0) {
      close(number);
    }
  }

  /// -1 without a descriptor.
  int GetNumber() const { return number; }
  bool IsOpen() const { return number >= 0; }

 private:
  int number = -1;
};

}  // namespace handheld
