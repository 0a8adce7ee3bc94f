// Bytes that one read gathers from a serial line.
#pragma once

#include <chrono>
#include <cstddef>

namespace handheld {

/// Decides when a burst is whole. A receiver sends the sentences of an epoch back to back and then
/// pauses, so a burst ends with a pause; a line that never pauses is cut after a line feed.
class Burst {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Duration = std::chrono::nanoseconds;

  /// Gathers into the caller's buffer `target` of `capacity` bytes.
  Burst(char* target, std::size_t capacity) : buffer(target), size(capacity) {}

  char* GetFreeSpace() const { return buffer + used; }
  std::size_t GetFreeSize() const { return size - used; }
  bool IsFull() const { return used == size; }
  bool IsEmpty() const { return used == 0; }
  std::size_t GetUsedSize() const { return used; }

  /// Notes `count` bytes that were put at GetFreeSpace().
  void Add(std::size_t count, Time now);

  /// How long the line must be silent for the burst to be whole. When the device lives faster than
  /// real time (`rate` above 1) its senders do too, so the pause after a complete sentence shrinks
  /// with it.
  Duration GetPause(double rate) const;

  /// True when the line has been flowing for so long that the burst should end at a line feed.
  bool IsOverdue(Time now) const;

  /// Number of bytes up to and including the last line feed; 0 when there is none.
  std::size_t GetWholeLinesSize() const;

 private:
  char* const buffer;
  const std::size_t size;
  std::size_t used = 0;
  Time start;
};

}  // namespace handheld
