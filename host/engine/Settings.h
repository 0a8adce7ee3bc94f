// A section of the engine's settings file that belongs to the host.
#pragma once

#include <string>

#include "engine/EngineLibrary.h"

namespace host {

/// Values are read when the engine is loaded and reach the file when it is unloaded.
class Settings {
 public:
  Settings(const EngineLibrary& engineToUse, const std::string& sectionName);

  /// Empty when there is none.
  std::string Get(const std::string& key) const;

  /// A value that the file cannot hold (one with "[", control characters or letters that the
  /// device's code page lacks) is stored as an empty one.
  void Set(const std::string& key, const std::string& value) const;

 private:
  const EngineLibrary& engine;
  std::u16string section;
};

}  // namespace host
