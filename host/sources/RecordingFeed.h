// Gives the engine a recording as fast as it reads.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "sources/EpochQueue.h"
#include "sources/NmeaSource.h"
#include "sources/PositionFeed.h"

namespace host {

/// Has no thread of its own: the engine's reader calls Read, each time for one epoch. A call means
/// that the engine has worked off the epoch before and has posted its update.
///
/// The engine then waits for the host to read the update: at first after each epoch. After
/// LookSeldom it waits only where the host tells something of the way: about ten times a second, at
/// each tenth of the recording, where the receiver's clock jumped, and at the end.
class RecordingFeed : public PositionFeed {
 public:
  /// On the reader's thread, `onTurn` is called when the engine waits for the host, and `onEnd` when
  /// the engine has taken everything and was answered. The source outlives the feed.
  RecordingFeed(NmeaSource& source, EpochQueue::Bridge bridgeUse, std::function<void()> onTurn,
                std::function<void()> onEnd);

  /// For the engine's reader: puts at most `size` bytes into `buffer` and returns their number; 0
  /// at the end or when the feed was stopped.
  std::size_t Read(char* buffer, std::size_t size);

  void TellFixes(std::function<void(const Fix&)> take) override;
  /// The engine begins by itself.
  void Start() override {}
  void Stop() override;
  void Answer(std::uint64_t updates) override;
  bool TakeStretchStart() override;
  /// Of all updates since the last call.
  std::vector<Fix> TakeFixes() override;
  Report GetReport() const override;

  /// The host does not need every update.
  void LookSeldom();

  /// Waits until the engine waits for the host or has ended, at most that long.
  void Rest(std::chrono::milliseconds limit);

 private:
  using Clock = std::chrono::steady_clock;

  bool TakeEpoch();
  bool FillQueue();
  bool FinishEpoch();
  void TellPlayed(const std::vector<Fix>& played) const;
  bool IsLookDue(const Epoch& epoch) const;
  int CountTenths(const Epoch& epoch) const;
  bool WaitForHost(const Epoch& epoch);
  void FinishRecording();

  NmeaSource& source;
  const std::function<void()> tellTurn;
  const std::function<void()> tellEnd;

  // For the engine's reader.
  EpochQueue queue;
  /// Empty when nobody wants fixes.
  std::function<void(const Fix&)> takeFix;
  EpochQueue::Piece piece;
  /// Bytes of the piece that were given.
  std::size_t given = 0;
  bool isRead = false;
  Clock::time_point lastLook;
  int tenthsLooked = 0;

  mutable std::mutex mutex;
  std::condition_variable changed;
  bool stopped = false;
  bool hasEnded = false;
  bool isHostsTurn = false;
  bool looksSeldom = false;
  bool startsStretch = false;
  std::uint64_t updatesExpected = 0;
  std::vector<Fix> fixes;
  Report report;
};

}  // namespace host
