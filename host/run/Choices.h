// The user's choices, kept from run to run.
#pragma once

#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/Settings.h"
#include "run/ChoicesBackup.h"
#include "run/HomeFolder.h"

namespace host {

/// Keeps device, baud rate, gpsd address, track folder and picture in the settings file, which is
/// written at the end of a run, and meanwhile in a backup.
class Choices {
 public:
  /// Gives the engine the choices of a run that ended without warning. `home` is the folder of the
  /// backup. Engine and messages outlive it.
  Choices(const EngineLibrary& engine, const HomeFolder& home, Messages& messages);

  /// Fills in what the user left out with the values used last. Throws UsageError when a device is
  /// needed and none was used before.
  void Recall(Options& options) const;

  /// Keeps everything but the picture.
  void Keep(const Options& options) const;

  /// Keeps the receiver that a search has found.
  void KeepReceiver(const std::string& device, int baud) const;

  /// Keeps whether a track is written if the user has changed that in the window: then it is
  /// `isWritten` now and was not as in `options` at the start.
  void KeepTrack(const Options& options, bool isWritten) const;

  /// Keeps the picture as it is now.
  void KeepPicture(const Options::Picture& picture) const;

  /// Makes sure that a power cut loses none of the user's choices, those of the engine included.
  void BackUp() { backup.Update(); }

 private:
  void RecallPort(Options& options) const;
  void RecallPicture(Options::Picture& picture) const;

  Settings settings;
  ChoicesBackup backup;
  /// "1" or "0" as it was kept before this run; empty: never chosen.
  const std::string keptTrack;
};

}  // namespace host
