// Keeps a drive while it is driven.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "drives/Drive.h"
#include "drives/DriveStore.h"
#include "drives/DriveTotals.h"
#include "drives/KeptTrip.h"
#include "sources/Fix.h"

namespace host {

/// Writes fixes and the trips to the disk on a thread of its own, so that a slow disk never holds up
/// the engine. The drive begins with the first fix that has a position; without one nothing is
/// kept. While the disk takes nothing, fixes are held in memory for a while.
class DriveRecorder {
 public:
  /// Longest wait of a fix before it is written. With the time of the write and the second until
  /// the next fix, not more than three seconds are lost.
  static constexpr std::chrono::milliseconds COMMIT_INTERVAL{1500};
  /// Fixes that are committed at once: recordings are read faster than they were driven.
  static constexpr std::size_t FULL_BATCH = 1000;

  /// Fixes held while the disk takes nothing: ten minutes at ten a second.
  static constexpr std::size_t MOST_HELD = 6000;

  /// Ends the drives of `store` that a power cut has left open. `source` is where positions come
  /// from, for the user. Throws HostError when the store cannot be used.
  DriveRecorder(std::unique_ptr<DriveStore> store, std::string source);
  DriveRecorder(const DriveRecorder&) = delete;
  DriveRecorder& operator=(const DriveRecorder&) = delete;
  ~DriveRecorder();

  /// Drives that ended without warning before.
  const std::vector<Drive>& GetEndedDrives() const { return endedDrives; }

  /// Takes the next fix, on any thread. A position without a time gets that of the computer; a
  /// moment without a fix and a time gets that of the fix before.
  void Take(Fix fix);

  /// Takes the trips as they are now.
  void TakeTrips(std::vector<KeptTrip> trips);

  /// Writes what is left and ends the drive. No fix may come any more.
  void Finish();

  /// What to tell the user since the last call: why fixes are not written at present, and when they
  /// are again.
  std::vector<std::string> TakeNews();

  /// Fixes that were given up.
  std::uint64_t CountLost() const;

  /// The drive as it was written; nothing when there was none. For after Finish.
  std::optional<Drive> GetDrive() const;

 private:
  /// What of the drive is on the disk.
  struct Progress {
    /// 0 before the drive begins.
    std::int64_t number = 0;
    std::int64_t positions = 0;
    DriveTotals totals;

    Drive GetDrive() const;
  };

  /// What waits for the disk.
  struct Batch {
    std::vector<Fix> fixes;
    /// None when they have not changed.
    std::vector<KeptTrip> trips;

    bool IsEmpty() const { return fixes.empty() && trips.empty(); }
  };

  void Run();
  /// For the thread that holds the mutex.
  bool IsCommitDue() const;
  /// Writes the batch or nothing.
  bool Write(const Batch& batch, bool isLast);
  void Add(Progress& next, const Fix& fix);
  void Hold(Batch batch);

  const std::unique_ptr<DriveStore> store;
  const std::string source;
  std::vector<Drive> endedDrives;
  Progress progress;

  mutable std::mutex mutex;
  std::condition_variable changed;
  Batch waiting;
  /// The trips taken last.
  std::vector<KeptTrip> latestTrips;
  std::optional<std::int64_t> latestTimeMs;
  bool stopped = false;
  bool hasProblem = false;
  std::vector<std::string> news;
  std::uint64_t lost = 0;
  std::thread thread;
};

}  // namespace host
