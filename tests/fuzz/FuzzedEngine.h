// An engine in a folder of its own, for fuzzers.
#pragma once

#include <ferolin.h>
#include <windows.h>

#include <string_view>

#include "engine/Engine.h"
#include "support/TempFolder.h"

namespace fuzz {

/// The handheld and the folder that the engine lies in, with the display font but without pictures:
/// loading them takes most of the time. Made once in a process; the device's clock runs a thousand
/// times faster.
class DeviceFolder {
 public:
  static DeviceFolder& Instance();

  /// What the engine is attached to.
  HMODULE GetModule() const { return module; }
  const testing_support::TempFolder& GetFolder() const { return folder; }

 private:
  DeviceFolder();

  testing_support::TempFolder folder;
  HMODULE module;
};

/// Attached with these settings; detached, which saves them, at the end of the scope.
class FuzzedEngine {
 public:
  explicit FuzzedEngine(std::string_view settings);
  ~FuzzedEngine();
  FuzzedEngine(const FuzzedEngine&) = delete;
  FuzzedEngine& operator=(const FuzzedEngine&) = delete;

  HWND GetWindow() const { return window; }

  /// A position at this second of the day, and a frame of each view.
  void ShowViews(int second) const;

 private:
  HWND window;
};

}  // namespace fuzz
