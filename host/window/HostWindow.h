// The window that the engine notifies, and the wait for events.
#pragma once

#include <windows.h>

#include <functional>

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
    /// The wait is over without an event.
    NOTHING,
  };

  /// Takes the code of a button that was touched.
  using OnButton = std::function<void(LPARAM)>;
  /// Takes the messages of the thread's other windows.
  using OnOther = std::function<void(const MSG&)>;

  /// `updateMessage` is the number of the engine's notification. Throws HostError when the window
  /// cannot be made.
  explicit HostWindow(UINT updateMessage);
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow();

  HWND GetHandle() const { return window; }

  void Post(Event event) const;

  /// Sets who gets the messages that are no events; Wait calls them. By default nobody does.
  void SetListeners(OnButton buttonListener, OnOther otherListener);

  /// Waits for the next event, at most that long in real time.
  Event Wait(DWORD milliseconds) const;

 private:
  const UINT update;
  const UINT own;
  HWND window = nullptr;
  OnButton onButton = [](LPARAM) {};
  OnOther onOther = [](const MSG&) {};
};

}  // namespace host
