// Keeps the present drive on the disk, and tells the user.
#pragma once

#include <memory>
#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "drives/DriveRecorder.h"
#include "run/PositionSource.h"

namespace host {

/// Keeps drives from a receiver always, others when the user asks for it. When the disk fails, the
/// user is told and the run goes on. For the host's thread.
class DriveKeeping {
 public:
  /// Tells which drives a power cut has ended. `home` is the folder of the drives. All other
  /// arguments outlive this object.
  DriveKeeping(const Options& options, const std::string& home, Messages& messages);

  /// Call between the source's Open and its Start.
  void Start(PositionSource& source);

  /// Tells failures since the last call.
  void SayNews();

  /// Call when the source has stopped.
  void Finish();

 private:
  void Open(const std::string& home);

  const Options& options;
  Messages& messages;
  /// Null when the drive is not kept.
  std::unique_ptr<DriveRecorder> recorder;
};

}  // namespace host
