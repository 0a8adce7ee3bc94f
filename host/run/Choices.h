// The user's choices, kept from run to run.
#pragma once

#include "commandline/Options.h"
#include "engine/Settings.h"

namespace host {

/// Keeps device, baud rate, gpsd address, track folder and picture in the settings file.
class Choices {
 public:
  /// The engine outlives it.
  explicit Choices(const EngineLibrary& engine);

  /// Fills in what the user left out with the values used last. Throws UsageError when a device is
  /// needed and none was used before.
  void Recall(Options& options) const;

  /// Keeps everything but the picture.
  void Keep(const Options& options) const;

  /// Keeps the picture as it is at the end of a run.
  void KeepPicture(const Options::Picture& picture) const;

 private:
  void RecallPort(Options& options) const;
  void RecallPicture(Options::Picture& picture) const;

  Settings settings;
};

}  // namespace host
