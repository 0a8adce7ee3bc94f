// Passes on to the engine what a source sends, as fast as the engine takes it.
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
#include <vector>

#include "sources/EpochSplitter.h"
#include "sources/Fix.h"
#include "sources/FixReader.h"
#include "sources/NmeaSource.h"
#include "sources/PseudoTerminal.h"
#include "sources/ReceiverBridge.h"
#include "sources/Reception.h"
#include "sources/SilenceWatch.h"
#include "sources/SourceReader.h"

namespace host {

/// Writes one epoch and waits until the host has answered its update before it writes the next one,
/// so that no update is missed, however fast the source is. The wait for an update that does not
/// come is limited. Epochs that a receiver has sent during the wait are written together, so that
/// the receiver is never ahead; one that starts a stretch is always written by itself.
///
/// While a receiver is silent, the engine gets an RMC without a fix once a second, the first one as
/// the start of a stretch: it shows no stale speed, and the trip is not carried over the gap.
/// Without a bridge the engine gets nothing.
///
/// Works on a thread of its own, which owns the source, the line and the bridge while it runs. All
/// methods are for the host's thread.
class Feeder {
 public:
  enum class Bridge { ON, OFF };

  struct Report {
    /// Share of the source written so far, 0 to 1; nothing when its size is unknown.
    std::optional<double> progress;
    ReceiverBridge::Counts bridge;
    std::set<std::string> talkers;
    /// Of a receiver.
    Reception reception;
    std::uint64_t sentences = 0;
    std::uint64_t linesDropped = 0;
    std::uint64_t clockJumps = 0;
    /// Expected updates that did not come.
    std::uint64_t updatesMissed = 0;
  };

  /// `pace` is the speed relative to the time stamps; 0 is as fast as updates are answered. On the
  /// feeder's thread, `beforeEpoch` is called before an epoch is written, and `onEnd` when
  /// everything was written and answered. Source and line outlive the feeder.
  Feeder(NmeaSource& source, const PseudoTerminal& line, Bridge bridgeUse, double pace,
         std::function<void(const Epoch&)> beforeEpoch, std::function<void()> onEnd);
  Feeder(const Feeder&) = delete;
  Feeder& operator=(const Feeder&) = delete;
  ~Feeder();

  /// Gives `take` each fix on the feeder's thread: that of a receiver at once, that of a recording
  /// when it is played. When a receiver falls silent, `take` gets an empty one. Call before Start.
  void TellFixes(std::function<void(const Fix&)> take);

  void Start();
  /// Returns when the thread has ended. Does nothing when it was not started or has ended.
  void Stop();

  /// Call when the host has read an update of the engine.
  void Answer();

  /// True once after the engine has read that the receiver's clock jumped, and before it reads on:
  /// ask at an update, before the answer to it.
  bool TakeStretchStart();

  /// What the receiver said about the moment of the latest update; empty without a bridge.
  Fix GetFix() const;

  Report GetReport() const;

 private:
  using Clock = std::chrono::steady_clock;

  /// With the fixes that were complete when the epoch was.
  struct Piece {
    Epoch epoch;
    std::vector<Fix> fixes;
  };

  void Run();
  /// Empty when a receiver sends nothing for a while.
  std::optional<std::string> ReadSource();
  void WatchSilence(bool hasBytes);
  void Queue(Epoch epoch);
  void OnFix(const Fix& each);
  bool FeedQueue();
  bool Feed(const Epoch& epoch);
  Epoch TakeEpoch();
  bool WaitForTurn(const Epoch& epoch);
  /// Time from the last turn to this epoch's.
  Clock::duration StepTo(const Epoch& epoch) const;
  bool Write(const std::string& bytes);
  void Expect(const Epoch& epoch);
  bool WaitForAnswer();
  bool WaitUntilRead();
  /// Waits for this time. False when the feeder was stopped.
  bool Pause(Clock::duration duration);
  void PublishCounts();
  void PublishProgress(const Epoch& epoch);

  NmeaSource& source;
  SourceReader reader;
  const PseudoTerminal& line;
  const Bridge bridgeUse;
  const double pace;
  const std::function<void(const Epoch&)> prepare;
  const std::function<void()> end;
  ReceiverBridge bridge;
  EpochSplitter splitter;
  std::deque<Piece> queue;
  SilenceWatch silence;
  std::uint64_t sentencesSeen = 0;
  Reception reception;
  std::function<void(const Fix&)> takeFix;
  FixReader fixReader;
  /// Fixes of the epoch that is not complete yet.
  std::vector<Fix> fixes;
  std::optional<std::int64_t> lastTimeMs;
  Clock::time_point lastTurn;
  Clock::duration patience;

  mutable std::mutex mutex;
  std::condition_variable changed;
  bool stopped = false;
  std::uint64_t expected = 0;
  std::uint64_t answered = 0;
  bool startsStretch = false;
  Fix fix;
  Report report;
  std::thread thread;
};

}  // namespace host
