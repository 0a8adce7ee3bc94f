// Keeps the present drive on the disk, and tells the user.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "drives/DriveRecorder.h"
#include "drives/KeptTrip.h"
#include "run/HomeFolder.h"
#include "run/PositionSource.h"
#include "run/Trips.h"

namespace host {

/// Keeps drives from a receiver always, others when the user asks for it. When the disk fails, the
/// user is told and the run goes on. For the host's thread.
class DriveKeeping {
 public:
  /// Tells which drives a power cut has ended. `home` is the folder of the drives; nothing is kept
  /// in one that is read-only. All other arguments outlive this object.
  DriveKeeping(const Options& options, const HomeFolder& home, Messages& messages);

  /// Call between the source's Open and its Start.
  void Start(PositionSource& source);

  /// The trips as they were kept; without those that were not.
  const std::vector<KeptTrip>& GetTrips() const { return keptTrips; }

  /// Advances the trips about once a second and keeps them, and tells news of the disk.
  void OnUpdate(Trips& trips);

  /// Call when the source has stopped.
  void Finish(Trips& trips);

 private:
  void OpenOrReplace(const std::string& home);
  void Open(const std::string& home);
  void SayNews();

  const Options& options;
  Messages& messages;
  /// Null when the drive is not kept.
  std::unique_ptr<DriveRecorder> recorder;
  std::vector<KeptTrip> keptTrips;
  std::chrono::steady_clock::time_point nextAdvance;
};

}  // namespace host
