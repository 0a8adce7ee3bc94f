// A receiver's sentences, written to files as they come.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include "base/FileDescriptor.h"

namespace host {

/// Each day has a file of its own: "drive.nmea" becomes "drive-2026-11-22.nmea", in the user's time
/// zone; it is continued when it is there. A line "# 2026-11-22T07:59:00.123Z" tells the time about
/// once a second. What is written is on the disk three seconds later. Writes on a thread of its
/// own, so that a slow disk never holds up the receiver.
class SentenceLog {
 public:
  using Clock = std::chrono::system_clock;

  /// Bytes held while the disk takes nothing; more are lost.
  static constexpr std::size_t MOST_HELD = 1 << 20;

  /// `now` tells the time, on the thread of Take. Throws HostError when today's file cannot be
  /// written.
  explicit SentenceLog(std::string path, std::function<Clock::time_point()> now = Clock::now);
  SentenceLog(const SentenceLog&) = delete;
  SentenceLog& operator=(const SentenceLog&) = delete;
  ~SentenceLog() { Finish(); }

  /// Takes the next bytes of the receiver, on one thread.
  void Take(std::string_view bytes);

  /// Writes what is left.
  void Finish();

  /// Why nothing can be written at present, once for each time that begins.
  std::optional<std::string> TakeProblem();

  /// Bytes that were not written. For after Finish.
  std::uint64_t CountLost() const;

 private:
  struct Batch {
    std::string file;
    std::string text;
  };

  std::string NameOf(Clock::time_point moment) const;
  void Run();
  /// Returns the number of bytes written.
  std::size_t Write(const Batch& batch);
  bool Open(const std::string& name);
  void SetProblem(const std::string& name, int error);

  const std::string path;
  const std::function<Clock::time_point()> now;
  // Of the thread that calls Take.
  std::string line;
  Clock::time_point stamped;
  // Of the writing thread.
  FileDescriptor file;
  std::string openName;

  mutable std::mutex mutex;
  std::condition_variable changed;
  Batch waiting;
  bool stopped = false;
  bool hasProblem = false;
  std::optional<std::string> problem;
  std::uint64_t lost = 0;
  std::thread thread;
};

}  // namespace host
