// A source that is read on a thread of its own.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "sources/NmeaSource.h"

namespace host {

/// Lets the wait for a source's bytes have a limit. Start, Read and Stop are for one thread.
class SourceReader {
 public:
  /// The source outlives the reader.
  explicit SourceReader(NmeaSource& source) : source(source) {}
  SourceReader(const SourceReader&) = delete;
  SourceReader& operator=(const SourceReader&) = delete;
  ~SourceReader() { Stop(); }

  void Start();
  /// Stops the source, too. Does nothing when it was not started or has stopped.
  void Stop();

  /// All bytes that have come; empty when none come in time, nothing when the source has ended.
  std::optional<std::string> Read(std::chrono::milliseconds patience);

 private:
  void Run();
  bool Take(std::optional<std::string> bytes);

  NmeaSource& source;
  std::mutex mutex;
  std::condition_variable changed;
  std::string waiting;
  bool hasEnded = false;
  bool isStopped = false;
  std::thread thread;
};

}  // namespace host
