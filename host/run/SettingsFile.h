// The settings file of the home folder.
#pragma once

#include <filesystem>
#include <string>

#include "base/Messages.h"
#include "run/HomeFolder.h"

namespace host {

/// Stands between the engine and the user's file. The engine reads the file itself, but saves into
/// a folder aside. From there its settings get into the file so that mode, owner and links stay,
/// and a power cut leaves the old or the new ones whole.
class SettingsFile {
 public:
  /// To be made before the engine is loaded; the device knows its folder as `deviceHome`. A file
  /// that cannot be read or written is left alone, and the user is told that settings are not kept.
  /// Throws HostError when something that is no settings file has its name. `messages` outlives it.
  SettingsFile(const HomeFolder& home, const std::u16string& deviceHome, Messages& messages);
  SettingsFile(const SettingsFile&) = delete;
  SettingsFile& operator=(const SettingsFile&) = delete;
  /// Keeps the settings if that was not done, and tells what goes wrong.
  ~SettingsFile();

  /// Gives the engine the settings of a theme in place of those in the file. To be called before
  /// the engine is loaded. Throws HostError when they cannot be handed over.
  void Override(const std::string& theme);

  /// To be called once the engine is loaded: it has read its settings and gets them no more.
  void OnEngineLoaded();

  /// To be called once the engine is unloaded: it has saved its settings. The settings of a theme
  /// take the place of its own. Throws HostError when they are lost.
  void Keep(const std::string& theme = {});

 private:
  void Check();
  bool IsThere() const;
  void PrepareSaving();
  void GiveUp(const std::string& trouble);

  Messages& messages;
  /// The user's file; it may be missing.
  const std::filesystem::path file;
  /// What the engine saves into, empty but for a save. In a home folder that is read-only it lies
  /// elsewhere, so that the engine finds its settings all the same.
  const std::filesystem::path folder;
  const std::filesystem::path saved;
  const std::u16string deviceFile;
  bool canRead = true;
  bool canKeep;
  /// An engine was loaded whose settings are not kept yet.
  bool isLoaded = false;
};

}  // namespace host
