// The window that the engine notifies, and the loop that waits for what happens.
#pragma once

#include <windows.h>

namespace host {

/// A hidden window of the thread that makes it. Only Post may be called from other threads.
class HostWindow {
 public:
  enum class Event {
    /// The engine has taken a position.
    UPDATE,
    /// Everything that the source sent was taken.
    SOURCE_ENDED,
    /// The user wants to leave.
    STOP,
    /// The terminal has changed its size.
    RESIZE,
  };

  /// `updateMessage` is the number of the engine's notification. Throws HostError when there is no
  /// window to be had.
  explicit HostWindow(UINT updateMessage);
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow();

  HWND GetHandle() const { return window; }

  void Post(Event event) const;

  /// Waits for the next event.
  Event Wait() const;

 private:
  const UINT update;
  const UINT own;
  HWND window = nullptr;
};

}  // namespace host
