#pragma once

#include <windows.h>

#include <cstdint>

namespace drawing {

/// Pseudo-random numbers, the same on every home. Draw one in a statement: the order in which a
/// call's arguments are evaluated differs between homes.
class Random {
 public:
  explicit Random(std::uint32_t seed) : state(seed == 0 ? 1 : seed) {
    Next();
    Next();
  }

  std::uint32_t Next() {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state;
  }

  /// A number from `first` to `last`, both included.
  int In(int first, int last) {
    return first + static_cast<int>(Next() % static_cast<std::uint32_t>(last - first + 1));
  }

  BYTE Byte() { return static_cast<BYTE>(In(0, 255)); }
  bool Flip() { return In(0, 1) != 0; }
  COLORREF Color() { return Next() & 0x00FFFFFF; }

 private:
  std::uint32_t state;
};

}  // namespace drawing
