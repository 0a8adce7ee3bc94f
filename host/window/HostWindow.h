// The window that the engine notifies, and the loop that waits for what happens.
#pragma once

#include <windows.h>

#include <functional>

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
    /// Nothing of all this for as long as the wait was to last.
    NOTHING,
  };

  /// Takes the code of a button that was touched.
  using OnButton = std::function<void(LPARAM)>;
  /// Takes the messages of the thread's other windows.
  using OnOther = std::function<void(const MSG&)>;

  /// `updateMessage` is the number of the engine's notification. Throws HostError when there is no
  /// window to be had.
  explicit HostWindow(UINT updateMessage);
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow();

  HWND GetHandle() const { return window; }

  void Post(Event event) const;

  /// Where messages go that are no events; they are called by Wait. To be set before the first
  /// wait, if at all.
  void SetListeners(OnButton buttonListener, OnOther otherListener);

  /// Waits for the next event, at most that long (in real time).
  Event Wait(DWORD milliseconds) const;

 private:
  const UINT update;
  const UINT own;
  HWND window = nullptr;
  OnButton onButton = [](LPARAM) {};
  OnOther onOther = [](const MSG&) {};
};

}  // namespace host
