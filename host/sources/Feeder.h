// Passes on to the engine what a receiver sends, or a recording at the pace of its time stamps.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "sources/EpochQueue.h"
#include "sources/Fix.h"
#include "sources/NmeaSource.h"
#include "sources/PositionFeed.h"
#include "sources/PseudoTerminal.h"
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
/// Works on a thread of its own, which owns the source and the line while it runs.
class Feeder : public PositionFeed {
 public:
  /// `pace` is the speed relative to the time stamps; 0 is as fast as updates are answered. `onEnd`
  /// is called on the feeder's thread when everything was written and answered. Source and line
  /// outlive the feeder.
  Feeder(NmeaSource& source, const PseudoTerminal& line, EpochQueue::Bridge bridgeUse, double pace,
         std::function<void()> onEnd);
  Feeder(const Feeder&) = delete;
  Feeder& operator=(const Feeder&) = delete;
  ~Feeder() override;

  void TellFixes(std::function<void(const Fix&)> take) override;
  void Start() override;
  /// Returns when the thread has ended.
  void Stop() override;
  void Answer(std::uint64_t updates) override;
  bool TakeStretchStart() override;
  std::vector<Fix> TakeFixes() override;
  Report GetReport() const override;

 private:
  using Clock = std::chrono::steady_clock;

  void Run();
  /// Empty when a receiver sends nothing for a while.
  std::optional<std::string> ReadSource();
  void WatchSilence(bool hasBytes);
  bool FeedQueue();
  bool Feed(const Epoch& epoch);
  EpochQueue::Piece TakePiece();
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
  const EpochQueue::Bridge bridgeUse;
  const double pace;
  const std::function<void()> end;
  EpochQueue queue;
  SilenceWatch silence;
  std::uint64_t sentencesSeen = 0;
  Reception reception;
  std::function<void(const Fix&)> takeFix;
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
