// Gives the engine a recording as fast as it reads.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
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
///
/// After LendTurns the reader's thread takes the host's turns itself while the host rests, since
/// switching threads twice for each update would take longer than the update.
class RecordingFeed : public PositionFeed {
 public:
  /// On the reader's thread, `onTurn` is called when the engine waits for the host, and `onEnd`
  /// when the engine has taken everything and was answered. The source outlives the feed.
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

  /// From now on `take` is called for each turn, in place of `onTurn`: on the reader's thread while
  /// the host's is in Rest, so that they never run at once. A turn in which Answer is not called
  /// ends the rest, and the engine goes on waiting. Call before the engine reads.
  void LendTurns(std::function<void()> take);

  /// Waits until the engine waits for the host or has ended, at most that long, and until a lent
  /// turn is over. Throws what a lent turn has thrown.
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
  void TellTurn();
  void TakeLentTurn();
  void FinishRecording();

  NmeaSource& source;
  const std::function<void()> tellTurn;
  const std::function<void()> tellEnd;
  /// Empty unless turns are lent.
  std::function<void()> takeTurn;

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
  /// Wakes the reader's thread: the host has answered, rests, or has stopped the feed.
  std::condition_variable hostActed;
  /// Wakes the host's thread: there is a turn, a lent one is over, or the recording has ended.
  std::condition_variable readerActed;
  bool stopped = false;
  bool hasEnded = false;
  bool isHostsTurn = false;
  bool isHostResting = false;
  /// A lent turn is being taken.
  bool isTurnLent = false;
  /// The turn is one for the host's own thread.
  bool isHostAwaited = false;
  /// What the last lent turn has thrown.
  std::exception_ptr failure;
  bool looksSeldom = false;
  bool startsStretch = false;
  std::uint64_t updatesExpected = 0;
  std::vector<Fix> fixes;
  Report report;
};

}  // namespace host
