// The user's choices, kept from run to run.
#pragma once

#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/Settings.h"
#include "run/ChoicesBackup.h"

namespace host {

/// Keeps device, baud rate, gpsd address, track folder and picture in the settings file, which is
/// written at the end of a run, and meanwhile in a backup.
class Choices {
 public:
  /// Gives the engine the choices of a run that ended without warning. `home` is the folder of the
  /// backup. Engine and messages outlive it.
  Choices(const EngineLibrary& engine, const std::string& home, Messages& messages);

  /// Fills in what the user left out with the values used last. Throws UsageError when a device is
  /// needed and none was used before.
  void Recall(Options& options) const;

  /// Keeps everything but the picture.
  void Keep(const Options& options) const;

  /// Keeps the receiver that a search has found.
  void KeepReceiver(const std::string& device, int baud) const;

  /// Keeps the picture as it is now.
  void KeepPicture(const Options::Picture& picture) const;

  /// Makes sure that a power cut loses none of the user's choices, those of the engine included.
  void BackUp() { backup.Update(); }

 private:
  void RecallPort(Options& options) const;
  void RecallPicture(Options::Picture& picture) const;

  Settings settings;
  ChoicesBackup backup;
};

}  // namespace host
