#include "drives/DriveRecorder.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace host {

namespace {

std::int64_t NowMs() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

bool HasPosition(const Fix& fix) {
  return fix.hasFix && fix.latitude && fix.longitude;
}

}  // namespace

DriveRecorder::DriveRecorder(std::unique_ptr<DriveStore> store, std::string source)
    : store(std::move(store)),
      source(std::move(source)),
      endedDrives(this->store->EndOpenDrives()),
      thread([this] { Run(); }) {}

DriveRecorder::~DriveRecorder() {
  Finish();
}

void DriveRecorder::Take(Fix fix) {
  {
    const std::lock_guard lock(mutex);
    if (!fix.timeMs) {
      fix.timeMs = fix.hasFix ? NowMs() : latestTimeMs.value_or(NowMs());
    }
    latestTimeMs = fix.timeMs;
    waiting.fixes.push_back(fix);
  }
  changed.notify_all();
}

/// Trips that stand still are not written again and again.
void DriveRecorder::TakeTrips(std::vector<KeptTrip> trips) {
  {
    const std::lock_guard lock(mutex);
    if (trips == latestTrips) {
      return;
    }
    latestTrips = trips;
    waiting.trips = std::move(trips);
  }
  changed.notify_all();
}

void DriveRecorder::Finish() {
  {
    const std::lock_guard lock(mutex);
    stopped = true;
  }
  changed.notify_all();
  if (thread.joinable()) {
    thread.join();
  }
}

std::vector<std::string> DriveRecorder::TakeNews() {
  const std::lock_guard lock(mutex);
  return std::exchange(news, {});
}

std::uint64_t DriveRecorder::CountLost() const {
  const std::lock_guard lock(mutex);
  return lost;
}

Drive DriveRecorder::Progress::GetDrive() const {
  Drive drive;
  drive.number = number;
  totals.PutInto(drive);
  return drive;
}

std::optional<Drive> DriveRecorder::GetDrive() const {
  return progress.number == 0 ? std::nullopt : std::optional(progress.GetDrive());
}

void DriveRecorder::Run() {
  bool isLast = false;
  while (!isLast) {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return stopped || !waiting.IsEmpty(); });
    changed.wait_for(lock, COMMIT_INTERVAL, [this] { return IsCommitDue(); });
    isLast = stopped;
    Batch batch = std::exchange(waiting, {});
    lock.unlock();
    if (!Write(batch, isLast)) {
      Hold(std::move(batch));
    }
  }
  const std::lock_guard lock(mutex);
  lost += waiting.fixes.size();
}

bool DriveRecorder::IsCommitDue() const {
  return stopped || (waiting.fixes.size() >= FULL_BATCH && !hasProblem);
}

bool DriveRecorder::Write(const Batch& batch, bool isLast) {
  Progress next = progress;
  std::string failure;
  try {
    store->InTransaction([&] {
      for (const Fix& fix : batch.fixes) {
        Add(next, fix);
      }
      for (const KeptTrip& trip : batch.trips) {
        store->KeepTrip(trip);
      }
      if (isLast && next.number != 0) {
        store->End(next.GetDrive());
      }
    });
    progress = next;
  } catch (const HostError& error) {
    failure = error.what();
  }
  const std::lock_guard lock(mutex);
  if (!failure.empty() && !hasProblem) {
    news.push_back("this drive cannot be kept at present: " + failure);
  } else if (failure.empty() && hasProblem) {
    news.emplace_back("this drive is kept again");
  }
  hasProblem = !failure.empty();
  return failure.empty();
}

void DriveRecorder::Add(Progress& next, const Fix& fix) {
  if (next.number == 0 && !HasPosition(fix)) {
    return;
  }
  if (next.number == 0) {
    next.number = store->Begin(source, fix.timeMs.value_or(0));
  }
  store->Add(next.number, ++next.positions, fix);
  next.totals.Add(fix);
}

/// The oldest fixes are given up when there are too many.
void DriveRecorder::Hold(Batch batch) {
  const std::lock_guard lock(mutex);
  std::vector<Fix>& fixes = batch.fixes;
  fixes.insert(fixes.end(), waiting.fixes.begin(), waiting.fixes.end());
  const std::size_t excess = fixes.size() - std::min(fixes.size(), MOST_HELD);
  fixes.erase(fixes.begin(), fixes.begin() + static_cast<std::ptrdiff_t>(excess));
  lost += excess;
  if (waiting.trips.empty()) {
    waiting.trips = std::move(batch.trips);
  }
  waiting.fixes = std::move(fixes);
}

}  // namespace host
