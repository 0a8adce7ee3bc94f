// The engine as a loaded library.
#pragma once

#include "base/WideString.h"
#include "engine/EngineFunctions.h"

namespace app {

using ferolin::WideString;

/// Loads the engine and unloads it again; unloading makes it write its track and its settings. For
/// one thread only.
class LoadedEngine : public EngineFunctions {
 public:
  LoadedEngine();
  LoadedEngine(const LoadedEngine&) = delete;
  LoadedEngine& operator=(const LoadedEngine&) = delete;
  ~LoadedEngine();

  /// False when the library or one of its functions is missing. Nothing may be called then.
  bool IsLoaded() const { return module != nullptr && missing == nullptr; }
  /// Name of a function that the library lacks; null when there is none, or no library.
  LPCWSTR GetMissing() const { return module != nullptr ? missing : nullptr; }

  /// Folder of the library, with a backslash at its end.
  WideString GetFolder() const;

  // Texts as wide text; empty when there is none.

  WideString GetNameOfSensor(int index) const;
  WideString GetValueOfSensor(int index) const;
  /// State of a saveable sensor.
  WideString GetStateOfSensor(int index) const;
  WideString GetPortName() const;
  WideString GetSmsText() const;
  WideString GetSmsRecipients() const;

  /// Value of an entry of the application's own section of the settings file.
  WideString ReadSetting(LPCWSTR key) const;
  /// Reaches the file when the engine is unloaded.
  void KeepSetting(LPCWSTR key, const WideString& value) const;

 private:
  HMODULE module;
  LPCWSTR missing;
};

}  // namespace app
