// How a program under qemu talks to the plugin that counts instructions: a system call without
// effect, whose unused arguments are these.
#pragma once

#include <cstdint>

namespace counter {

/// First argument of sched_yield.
constexpr std::uint32_t MARK = 0xFE201;

enum Request : std::uint32_t {
  /// From now on instructions between these two addresses are counted.
  SET_RANGE = 1,
  /// A count begins.
  BEGIN,
  /// The count ends; a number that stands for what was counted, and how often it was done
  /// meanwhile.
  END,
};

}  // namespace counter
