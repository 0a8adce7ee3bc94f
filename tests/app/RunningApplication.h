// One run of the application. Each home has its own source: DirectApplication.linux.cpp,
// RunningApplication.windows.cpp, RunningApplication.device.cpp.
#pragma once

#include <windows.h>

#include <memory>

#include "engine/LoadedEngine.h"

namespace app {

/// The application on the test's own thread, which dispatches its messages.
class RunningApplication {
 public:
  /// Null when it ends at once: it runs already, or cannot be started.
  static std::unique_ptr<RunningApplication> Start(const LoadedEngine& engine);
  virtual ~RunningApplication() = default;

  /// Null once it has ended.
  virtual HWND GetWindow() const = 0;
  /// Dispatches all messages that have come.
  virtual void Pump() = 0;
};

}  // namespace app
