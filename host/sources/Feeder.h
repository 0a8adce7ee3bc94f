// Gives the engine what a source sends, at the pace at which the engine takes it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>

#include "sources/EpochSplitter.h"
#include "sources/NmeaSource.h"
#include "sources/PseudoTerminal.h"
#include "sources/ReceiverBridge.h"

namespace host {

/// Writes one epoch at a time and goes on when the host has answered the update that it makes, so
/// that no update is missed, however fast the source is. An epoch without an update, and an update
/// that does not come, are waited for by time. What a receiver has sent meanwhile is written
/// together with its next epoch, so that it never falls behind.
///
/// Works on a thread of its own; the source, the line and the bridge belong to that thread while it
/// runs. All methods are for the host's thread.
class Feeder {
 public:
  enum class Bridge { ON, OFF };

  struct Report {
    /// Share of the source that was written, 0 to 1; nothing when its size is not known.
    std::optional<double> progress;
    ReceiverBridge::Counts bridge;
    std::set<std::string> talkers;
    std::uint64_t sentences = 0;
    std::uint64_t linesDropped = 0;
    /// Updates that the engine was expected to make and did not.
    std::uint64_t updatesMissed = 0;
  };

  /// `paceFactor` is the speed against that of the time stamps, 0 for no pace: as fast as updates
  /// are answered. `beforeEpoch` is called on the feeder's thread before an epoch is written,
  /// `onEnd` when everything was written and answered.
  Feeder(NmeaSource& sourceToRead, const PseudoTerminal& lineToWrite, Bridge bridgeUse,
         double paceFactor, std::function<void(const Epoch&)> beforeEpoch,
         std::function<void()> onEnd);
  ~Feeder();

  void Start();
  /// Returns when the thread has ended.
  void Stop();

  /// An update of the engine was read by the host.
  void Answer();

  Report GetReport() const;

 private:
  using Clock = std::chrono::steady_clock;

  void Run();
  bool FeedQueue();
  Epoch TakeEpoch();
  bool WaitForTurn(const Epoch& epoch);
  bool Write(const std::string& bytes);
  void Expect(int updates);
  bool WaitForAnswer();
  bool WaitUntilRead();
  /// Waits for that long. False when the feeder was stopped.
  bool Pause(Clock::duration duration);
  void Publish(const Epoch& epoch);

  NmeaSource& source;
  const PseudoTerminal& line;
  const double pace;
  const std::function<void(const Epoch&)> prepare;
  const std::function<void()> end;
  ReceiverBridge bridge;
  EpochSplitter splitter;
  std::deque<Epoch> queue;
  std::optional<std::int64_t> lastTimeMs;
  Clock::time_point lastTurn;
  Clock::duration patience;

  mutable std::mutex mutex;
  std::condition_variable changed;
  bool stopped = false;
  std::uint64_t expected = 0;
  std::uint64_t answered = 0;
  Report report;
  std::thread thread;
};

}  // namespace host
