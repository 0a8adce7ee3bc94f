#include "dastrel/GpsdReader.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "common/GpsdAddress.h"
#include "common/GpsdConnection.h"
#include "common/WakeEvent.h"
#include "dastrel/GpsdReport.h"
#include "dastrel/LatestPosition.h"

namespace dastrel {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::string_view WATCH_REQUEST = "?WATCH={\"enable\":true,\"json\":true};\n";
constexpr int RECONNECT_PAUSE_MS = 1000;
/// Lines in a row without sense after which the other side is no gpsd.
constexpr int MOST_NONSENSE = 20;
/// Longest wait for the thread. It ends within milliseconds unless the resolver blocks it.
constexpr std::chrono::seconds STOP_PATIENCE{2};

}  // namespace

/// State that one run of the thread shares with the callers.
class GpsdReader::Session {
 public:
  explicit Session(siblings::GpsdAddress gpsd) : address(std::move(gpsd)) {}

  void Run() noexcept;

  void AskToStop() { stop.Raise(); }

  /// Waits for the end of the thread's work. False when `patience` runs out first.
  bool AwaitEnd(std::chrono::seconds patience) {
    std::unique_lock lock(mutex);
    return ending.wait_for(lock, patience, [this] { return ended; });
  }

  GPS_POSITION GetPosition() {
    const std::lock_guard lock(mutex);
    return latest.At(Clock::now());
  }

 private:
  void Follow();
  void FollowOneConnection();
  void ForgetPosition();
  void SetEnded();

  const siblings::GpsdAddress address;
  siblings::WakeEvent stop;
  std::mutex mutex;
  std::condition_variable ending;
  bool ended = false;
  LatestPosition latest;
};

void GpsdReader::Session::Run() noexcept {
  do {
    Follow();
    ForgetPosition();
  } while (!stop.WaitFor(RECONNECT_PAUSE_MS));
  SetEnded();
}

/// A lack of memory ends the connection like any other failure; the next attempt follows.
void GpsdReader::Session::Follow() {
  try {
    FollowOneConnection();
  } catch (const std::exception&) {
  }
}

void GpsdReader::Session::FollowOneConnection() {
  siblings::GpsdConnection connection(stop);
  if (!connection.Open(address, WATCH_REQUEST)) {
    return;
  }
  std::string line;
  int nonsense = 0;
  while (nonsense < MOST_NONSENSE && connection.ReadLine(line)) {
    const GpsdReport report = GpsdReport::Parse(line);
    nonsense = report.isSensible ? 0 : nonsense + 1;
    const std::lock_guard lock(mutex);
    latest.Update(report, Clock::now());
  }
}

void GpsdReader::Session::ForgetPosition() {
  const std::lock_guard lock(mutex);
  latest.Clear();
}

void GpsdReader::Session::SetEnded() {
  const std::lock_guard lock(mutex);
  ended = true;
  ending.notify_all();
}

GpsdReader::~GpsdReader() {
  Stop();
}

void GpsdReader::Start(const char* address) noexcept {
  try {
    const std::lock_guard lock(mutex);
    if (session) {
      return;
    }
    auto started =
        std::make_shared<Session>(siblings::GpsdAddress::FromText(address ? address : ""));
    thread = std::thread([started] { started->Run(); });
    session = std::move(started);
  } catch (const std::exception&) {
    // The position stays unknown, as without gpsd.
  }
}

void GpsdReader::Stop() noexcept {
  std::shared_ptr<Session> stopping;
  std::thread ending;
  {
    const std::lock_guard lock(mutex);
    stopping = std::exchange(session, nullptr);
    ending = std::move(thread);
  }
  if (!stopping) {
    return;
  }
  stopping->AskToStop();
  if (stopping->AwaitEnd(STOP_PATIENCE)) {
    ending.join();
  } else {
    // The thread still waits for the resolver, which cannot be interrupted. It uses only its own
    // session, and this library stays loaded (nodelete).
    ending.detach();
  }
}

GPS_POSITION GpsdReader::GetPosition() const noexcept {
  std::shared_ptr<Session> running;
  {
    const std::lock_guard lock(mutex);
    running = session;
  }
  return running ? running->GetPosition() : LatestPosition().At(Clock::now());
}

}  // namespace dastrel
