// The drives on the disk.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "drives/Database.h"
#include "drives/Drive.h"
#include "drives/KeptTrip.h"
#include "drives/Statement.h"
#include "sources/Fix.h"

namespace host {

/// Keeps drives, their positions and the trips in the file drives.db of a folder. For one thread at
/// a time. All methods throw HostError when the file cannot be used,
/// DamagedDatabase when it never can.
class DriveStore {
 public:
  static constexpr const char* FILE_NAME = "drives.db";

  DriveStore(const std::string& folder, Database::Missing missing);
  DriveStore(const DriveStore&) = delete;
  DriveStore& operator=(const DriveStore&) = delete;

  /// Gives the file of a folder, and what SQLite keeps beside it, a name with the present moment.
  /// Returns that name.
  static std::string PutAside(const std::string& folder);

  /// Everything that `work` changes, or nothing when it throws.
  void InTransaction(const std::function<void()>& work) { database.InTransaction(work); }

  /// Begins a drive and returns its number.
  std::int64_t Begin(const std::string& source, std::int64_t startMs);
  /// Adds position `number`, counted from 1. The fix has a time.
  void Add(std::int64_t drive, std::int64_t number, const Fix& fix);
  /// Keeps times and sums of a drive.
  void End(const Drive& drive);

  /// Ends the drives that a power cut has left open, and returns them.
  std::vector<Drive> EndOpenDrives();

  /// Oldest first. The sums of an open drive are those of its positions so far.
  std::vector<Drive> List();

  /// Number of drives; quicker than the list.
  std::size_t Count();

  /// Calls `take` with each position of a drive, in their order.
  void ForEachPosition(std::int64_t drive, const std::function<void(const Fix&)>& take);

  void Delete(std::int64_t drive);

  void KeepTrip(const KeptTrip& trip);
  /// Nothing when no trip of this name was kept.
  std::optional<KeptTrip> GetTrip(const std::string& name);

 private:
  std::vector<Drive> Read(const char* sql);
  void AddUp(Drive& drive);

  Database database;
  Statement addPosition;
};

}  // namespace host
