// A section of the engine's settings file that belongs to the host.
#pragma once

#include <string>

#include "engine/EngineLibrary.h"

namespace host {

/// The engine reads the file when it is loaded and writes it when it is unloaded.
class Settings {
 public:
  /// The engine outlives it.
  Settings(const EngineLibrary& engine, const std::string& section);

  /// Empty when there is no value.
  std::string Get(const std::string& key) const;

  /// Takes any value. What the file cannot hold, such as letters that the device's code page lacks,
  /// is written as "%C5%82".
  void Set(const std::string& key, const std::string& value) const;

 private:
  const EngineLibrary& engine;
  std::u16string section;
};

}  // namespace host
