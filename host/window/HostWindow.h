// The window that the engine notifies, and the wait for events.
#pragma once

#include <windows.h>

#include <cstddef>

namespace host {

/// A hidden window of the thread that makes it. Other threads may call Post only.
class HostWindow {
 public:
  enum class Event {
    /// The engine has taken a position.
    UPDATE,
    /// The engine waits for the host. All updates before it have come.
    TURN,
    /// The source has ended and the engine has taken everything.
    SOURCE_ENDED,
    /// The user ends the program.
    STOP,
    /// The terminal has changed its size.
    RESIZE,
    /// Somebody has touched the views from another device, or looks at them, or does not any more.
    REMOTE,
    /// The wait is over without an event.
    NOTHING,
  };

  /// `updateMessage` is the number of the engine's notification. Throws HostError when the window
  /// cannot be made.
  explicit HostWindow(UINT updateMessage);
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow();

  HWND GetHandle() const { return window; }

  void Post(Event event) const;

  /// Makes the present or next wait end with UPDATE, once for each call. For the host's thread,
  /// when another of its windows gets the engine's notifications.
  void NoteUpdate() { ++updatesNoted; }

  /// Updates that the engine has notified since handheld::ForgetMessagesPosted, also those whose
  /// events were not taken yet. For any thread.
  std::size_t CountUpdatesPosted() const;

  /// Waits for the next event, at most that long in real time. The messages of the thread's other
  /// windows are dispatched meanwhile.
  Event Wait(DWORD milliseconds);

 private:
  bool IsUpdate(const MSG& message) const;

  const UINT update;
  const UINT own;
  HWND window = nullptr;
  int updatesNoted = 0;
};

}  // namespace host
