// The user's choices while the settings file does not have them yet.
#pragma once

#include <string>

#include "base/Messages.h"
#include "engine/EngineLibrary.h"
#include "engine/Settings.h"
#include "run/HomeFolder.h"

namespace host {

/// A file beside the settings file. It is written whenever the user has chosen something else than
/// the settings file has, and removed when the settings are saved. One that is there at the start
/// is of a run that ended without warning. For the host's thread.
class ChoicesBackup {
 public:
  /// Gives the engine the choices of such a run. The file lies in `home`; `settings` is the host's
  /// section. All arguments but `home` outlive the backup.
  ChoicesBackup(const EngineLibrary& engine, const Settings& settings, const HomeFolder& home,
                Messages& messages);

  /// Writes the choices if they have changed. Tells the first failure. Does nothing in a home folder
  /// that is read-only.
  void Update();

  /// Call when the settings are saved.
  static void Remove(const std::string& home);

 private:
  void Recover();
  /// All choices of the present, as JSON.
  std::string Describe() const;

  const EngineLibrary& engine;
  const Settings& settings;
  const std::string path;
  const bool isWritable;
  Messages& messages;
  /// As on the disk.
  std::string kept;
  bool hasFailed = false;
};

}  // namespace host
