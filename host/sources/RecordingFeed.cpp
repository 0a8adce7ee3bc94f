#include "sources/RecordingFeed.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "sources/RecordingClock.h"

namespace host {

namespace {

constexpr std::chrono::milliseconds LOOK_INTERVAL(100);
constexpr double TENTHS = 10;

}  // namespace

RecordingFeed::RecordingFeed(NmeaSource& source, EpochQueue::Bridge bridgeUse,
                             std::function<void()> onTurn, std::function<void()> onEnd)
    : source(source),
      tellTurn(std::move(onTurn)),
      tellEnd(std::move(onEnd)),
      queue(bridgeUse),
      lastLook(Clock::now()) {}

void RecordingFeed::TellFixes(std::function<void(const Fix&)> take) {
  takeFix = std::move(take);
}

void RecordingFeed::Stop() {
  {
    const std::lock_guard lock(mutex);
    stopped = true;
  }
  hostActed.notify_all();
  readerActed.notify_all();
  source.Stop();
}

void RecordingFeed::Answer(std::uint64_t updates) {
  {
    const std::lock_guard lock(mutex);
    report.updatesMissed = std::max(updatesExpected, updates) - updates;
    isHostsTurn = false;
    isHostAwaited = false;
  }
  hostActed.notify_all();
}

bool RecordingFeed::TakeStretchStart() {
  const std::lock_guard lock(mutex);
  return std::exchange(startsStretch, false);
}

std::vector<Fix> RecordingFeed::TakeFixes() {
  const std::lock_guard lock(mutex);
  return std::exchange(fixes, {});
}

PositionFeed::Report RecordingFeed::GetReport() const {
  const std::lock_guard lock(mutex);
  return report;
}

void RecordingFeed::LookSeldom() {
  const std::lock_guard lock(mutex);
  looksSeldom = true;
}

void RecordingFeed::LendTurns(std::function<void()> take) {
  takeTurn = std::move(take);
}

void RecordingFeed::Rest(std::chrono::milliseconds limit) {
  std::unique_lock lock(mutex);
  isHostResting = true;
  hostActed.notify_all();
  readerActed.wait_for(lock, limit, [this] { return isHostAwaited || hasEnded || stopped; });
  isHostResting = false;
  readerActed.wait(lock, [this] { return !isTurnLent; });
  if (failure) {
    std::rethrow_exception(std::exchange(failure, nullptr));
  }
}

std::size_t RecordingFeed::Read(char* buffer, std::size_t size) {
  if (given == piece.epoch.bytes.size() && !TakeEpoch()) {
    return 0;
  }
  const std::size_t count = piece.epoch.bytes.copy(buffer, size, given);
  given += count;
  return count;
}

/// False when there is none.
bool RecordingFeed::TakeEpoch() {
  if (!FinishEpoch()) {
    return false;
  }
  if (!FillQueue()) {
    FinishRecording();
    return false;
  }
  piece = queue.TakeFirst();
  given = 0;
  RecordingClock::Follow(piece.epoch);
  const std::lock_guard lock(mutex);
  if (piece.epoch.updates > 0) {
    ++updatesExpected;
    fixes.push_back(piece.epoch.fix);
  }
  startsStretch = piece.epoch.startsStretch;
  return !stopped;
}

/// False when the source has ended.
bool RecordingFeed::FillQueue() {
  while (queue.IsEmpty() && !isRead) {
    if (const std::optional<std::string> bytes = source.Read()) {
      queue.Add(*bytes);
    } else {
      queue.Finish();
      isRead = true;
    }
    const std::lock_guard lock(mutex);
    queue.Count(report);
  }
  return !queue.IsEmpty();
}

/// False when the feed was stopped.
bool RecordingFeed::FinishEpoch() {
  TellPlayed(piece.fixes);
  return piece.epoch.bytes.empty() || !IsLookDue(piece.epoch) || WaitForHost(piece.epoch);
}

void RecordingFeed::TellPlayed(const std::vector<Fix>& played) const {
  if (takeFix) {
    std::for_each(played.begin(), played.end(), takeFix);
  }
}

bool RecordingFeed::IsLookDue(const Epoch& epoch) const {
  {
    const std::lock_guard lock(mutex);
    if (!looksSeldom) {
      return true;
    }
  }
  if (epoch.updates == 0) {
    return false;
  }
  return epoch.startsStretch || CountTenths(epoch) > tenthsLooked ||
         Clock::now() - lastLook >= LOOK_INTERVAL;
}

/// 0 when the size of the source is unknown.
int RecordingFeed::CountTenths(const Epoch& epoch) const {
  return static_cast<int>(source.GetProgress(epoch.sourceOffset).value_or(0) * TENTHS);
}

/// False when the feed was stopped.
bool RecordingFeed::WaitForHost(const Epoch& epoch) {
  {
    const std::lock_guard lock(mutex);
    isHostsTurn = true;
    isHostAwaited = !takeTurn;
    if (epoch.updates > 0) {
      report.progress = source.GetProgress(epoch.sourceOffset);
    }
  }
  TellTurn();
  std::unique_lock lock(mutex);
  hostActed.wait(lock, [this] { return !isHostsTurn || stopped; });
  lastLook = Clock::now();
  tenthsLooked = CountTenths(epoch);
  return !stopped;
}

void RecordingFeed::TellTurn() {
  if (takeTurn) {
    TakeLentTurn();
  } else {
    tellTurn();
    readerActed.notify_all();
  }
}

/// Wakes the host only where it has something to do: waking it at each turn would take most of the
/// time.
void RecordingFeed::TakeLentTurn() {
  std::unique_lock lock(mutex);
  hostActed.wait(lock, [this] { return isHostResting || stopped; });
  if (stopped) {
    return;
  }
  isTurnLent = true;
  lock.unlock();
  std::exception_ptr thrown;
  try {
    takeTurn();
  } catch (...) {
    thrown = std::current_exception();
  }
  lock.lock();
  isTurnLent = false;
  failure = thrown;
  isHostAwaited = isHostsTurn;
  if (!isHostResting || isHostAwaited) {
    readerActed.notify_all();
  }
}

void RecordingFeed::FinishRecording() {
  TellPlayed(queue.TakeLastFixes());
  // Updates since the last look.
  if (!WaitForHost({})) {
    return;
  }
  {
    const std::lock_guard lock(mutex);
    hasEnded = true;
  }
  tellEnd();
  readerActed.notify_all();
}

}  // namespace host
