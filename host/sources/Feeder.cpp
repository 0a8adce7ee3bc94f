#include "sources/Feeder.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

using std::chrono::milliseconds;

/// Time between two epochs whose time stamps are missing or further apart than LONGEST_STEP_MS.
constexpr std::int64_t USUAL_STEP_MS = 1000;
constexpr std::int64_t LONGEST_STEP_MS = 10000;

// Limits of the wait for an update. It is halved after every update that does not come.
constexpr milliseconds LONGEST_PATIENCE(3000);
constexpr milliseconds SHORTEST_PATIENCE(100);

/// Pause after which the next bytes are a new burst to the driver of a serial port.
constexpr milliseconds SILENCE(40);
constexpr milliseconds LONGEST_READ(2000);
constexpr milliseconds STEP(2);

/// Longest wait for a receiver's bytes before its silence is looked at.
constexpr milliseconds SILENCE_CHECK(500);

/// Piece of one RMC without a fix and without a time, for which the engine takes its own clock's.
Epoch MakeGap(bool startsStretch) {
  constexpr std::size_t RMC_FIELDS = 11;
  NmeaSentence rmc;
  rmc.name = "GPRMC";
  rmc.fields.resize(RMC_FIELDS);
  rmc.fields[1] = 'V';
  Epoch epoch;
  epoch.bytes = rmc.GetText() + "\r\n";
  epoch.updates = 1;
  epoch.startsStretch = startsStretch;
  return epoch;
}

}  // namespace

Feeder::Feeder(NmeaSource& source, const PseudoTerminal& line, EpochQueue::Bridge bridgeUse,
               double pace, std::function<void()> onEnd)
    : source(source),
      reader(source),
      line(line),
      bridgeUse(bridgeUse),
      pace(pace),
      end(std::move(onEnd)),
      queue(bridgeUse),
      silence(Clock::now()),
      takeFix([](const Fix&) {}),
      patience(LONGEST_PATIENCE) {}

Feeder::~Feeder() {
  Stop();
}

void Feeder::TellFixes(std::function<void(const Fix&)> take) {
  takeFix = std::move(take);
  if (source.IsLive()) {
    queue.TellFixesAtOnce(takeFix);
  }
}

void Feeder::Start() {
  thread = std::thread([this] { Run(); });
}

void Feeder::Stop() {
  {
    const std::lock_guard lock(mutex);
    stopped = true;
  }
  changed.notify_all();
  source.Stop();
  if (thread.joinable()) {
    thread.join();
  }
}

void Feeder::Answer(std::uint64_t updates) {
  {
    const std::lock_guard lock(mutex);
    answered = updates;
  }
  changed.notify_all();
}

bool Feeder::TakeStretchStart() {
  const std::lock_guard lock(mutex);
  return std::exchange(startsStretch, false);
}

std::vector<Fix> Feeder::TakeFixes() {
  const std::lock_guard lock(mutex);
  return {fix};
}

PositionFeed::Report Feeder::GetReport() const {
  const std::lock_guard lock(mutex);
  return report;
}

void Feeder::Run() {
  silence = SilenceWatch(Clock::now());
  if (source.IsLive()) {
    reader.Start();
  }
  bool goOn = true;
  while (goOn) {
    const std::optional<std::string> bytes = ReadSource();
    if (bytes) {
      queue.Add(*bytes);
    } else {
      queue.Finish();
    }
    if (source.IsLive()) {
      WatchSilence(bytes && !bytes->empty());
    }
    PublishCounts();
    const bool isFed = FeedQueue();
    goOn = isFed && bytes.has_value();
    if (isFed && !bytes) {
      const std::vector<Fix> last = queue.TakeLastFixes();
      std::for_each(last.begin(), last.end(), takeFix);
    }
  }
  reader.Stop();
  end();
}

std::optional<std::string> Feeder::ReadSource() {
  return source.IsLive() ? reader.Read(SILENCE_CHECK) : source.Read();
}

void Feeder::WatchSilence(bool hasBytes) {
  const Clock::time_point now = Clock::now();
  if (queue.GetSentences() > sentencesSeen) {
    silence.OnSentence(now);
  } else if (hasBytes) {
    silence.OnNoise(now);
  }
  sentencesSeen = queue.GetSentences();
  const int seconds = silence.CountSilentSeconds(now);
  const bool isNew = reception.silentSeconds == 0;
  const bool isLonger = seconds > reception.silentSeconds;
  if (isLonger && bridgeUse == EpochQueue::Bridge::ON) {
    queue.Push(MakeGap(isNew));
  }
  if (isLonger && isNew) {
    queue.FinishFix();
    takeFix(Fix());
  }
  reception = {source.GetTrouble(), seconds, silence.HasNoise(now), source.Searches(),
               source.GetName()};
}

bool Feeder::FeedQueue() {
  while (!queue.IsEmpty()) {
    const EpochQueue::Piece piece = TakePiece();
    if (!Feed(piece.epoch)) {
      return false;
    }
    std::for_each(piece.fixes.begin(), piece.fixes.end(), takeFix);
  }
  return true;
}

/// False when the feeder was stopped.
bool Feeder::Feed(const Epoch& epoch) {
  if (!WaitForTurn(epoch)) {
    return false;
  }
  PublishProgress(epoch);
  Expect(epoch);
  return Write(epoch.bytes) && (epoch.updates > 0 ? WaitForAnswer() : WaitUntilRead());
}

EpochQueue::Piece Feeder::TakePiece() {
  EpochQueue::Piece piece = queue.TakeFirst();
  Epoch& epoch = piece.epoch;
  while (source.IsLive() && !queue.IsEmpty() && !epoch.startsStretch &&
         !queue.GetFirst().startsStretch &&
         epoch.bytes.size() + queue.GetFirst().bytes.size() <= EpochSplitter::MAX_BYTES) {
    const EpochQueue::Piece next = queue.TakeFirst();
    epoch.bytes += next.epoch.bytes;
    epoch.updates += next.epoch.updates;
    if (next.epoch.updates > 0) {
      epoch.fix = next.epoch.fix;
    }
  }
  return piece;
}

bool Feeder::WaitForTurn(const Epoch& epoch) {
  if (pace <= 0 || epoch.updates == 0) {
    return Pause(Clock::duration::zero());
  }
  const Clock::time_point now = Clock::now();
  const bool isFirst = lastTurn == Clock::time_point();
  lastTurn = isFirst ? now : std::max(lastTurn + StepTo(epoch), now);
  lastTimeMs = epoch.timeMs;
  return Pause(lastTurn - now);
}

Feeder::Clock::duration Feeder::StepTo(const Epoch& epoch) const {
  std::int64_t stepMs = epoch.timeMs && lastTimeMs ? *epoch.timeMs - *lastTimeMs : USUAL_STEP_MS;
  if (stepMs < 0 || stepMs > LONGEST_STEP_MS) {
    stepMs = USUAL_STEP_MS;
  }
  const std::chrono::duration<double, std::milli> step(static_cast<double>(stepMs) / pace);
  return std::chrono::duration_cast<Clock::duration>(step);
}

bool Feeder::Write(const std::string& bytes) {
  std::string_view rest = bytes;
  while (true) {
    rest.remove_prefix(line.Write(rest));
    if (rest.empty()) {
      return true;
    }
    if (!Pause(STEP)) {
      return false;
    }
  }
}

/// Late answers to earlier updates do not count for the coming one.
void Feeder::Expect(const Epoch& epoch) {
  const std::lock_guard lock(mutex);
  expected = std::max(expected, answered) + static_cast<std::uint64_t>(epoch.updates);
  startsStretch = epoch.startsStretch;
  if (epoch.updates > 0) {
    fix = epoch.fix;
  }
}

bool Feeder::WaitForAnswer() {
  std::unique_lock lock(mutex);
  if (changed.wait_for(lock, patience, [this] { return stopped || answered >= expected; })) {
    patience = LONGEST_PATIENCE;
  } else {
    report.updatesMissed += expected - answered;
    expected = answered;
    patience = std::max<Clock::duration>(patience / 2, SHORTEST_PATIENCE);
  }
  return !stopped;
}

bool Feeder::WaitUntilRead() {
  const Clock::time_point latest = Clock::now() + LONGEST_READ;
  do {
    if (!Pause(SILENCE)) {
      return false;
    }
  } while (line.CountUnread() > 0 && Clock::now() < latest);
  return true;
}

bool Feeder::Pause(Clock::duration duration) {
  std::unique_lock lock(mutex);
  return !changed.wait_for(lock, duration, [this] { return stopped; });
}

void Feeder::PublishCounts() {
  const std::lock_guard lock(mutex);
  queue.Count(report);
  report.reception = reception;
}

void Feeder::PublishProgress(const Epoch& epoch) {
  const std::lock_guard lock(mutex);
  report.progress = source.GetProgress(epoch.sourceOffset);
}

}  // namespace host
