// Bytes that one read gathers from a serial line.
#pragma once

#include <chrono>
#include <cstddef>

namespace handheld {

/// Decides when a burst is complete. A receiver sends the sentences of an epoch back to back and
/// then pauses, so a burst ends with a pause; a line that never pauses is cut after a line feed.
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

  /// Takes over `count` bytes that the caller has put at GetFreeSpace().
  void Add(std::size_t count, Time now);

  /// Silence that completes the burst. At a time `rate` above 1 senders are faster, too, so the
  /// pause after a complete sentence is divided by it.
  Duration GetPause(double rate) const;

  /// True when the line has flowed without a pause for so long that the burst is to be cut.
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
