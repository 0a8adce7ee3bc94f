// Pictures of the views, written to files.
#pragma once

namespace host {

/// For the host's thread.
class Pictures {
 public:
  virtual ~Pictures() = default;

  /// Takes the picture of the update that was just read. True when no more are needed. Throws
  /// HostError.
  virtual bool OnUpdate() = 0;

  /// Writes what belongs to the end of the run. Throws HostError, also when pictures are missing.
  virtual void Finish() = 0;
};

}  // namespace host
