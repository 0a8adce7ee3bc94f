// The windows of the device.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "windows/MessageQueue.h"

namespace handheld {

/// A window. It has no frame: its client area is all of it.
struct Window {
  HWND handle = nullptr;
  WNDPROC procedure = nullptr;
  /// Queue of the creating thread. Only that thread runs the procedure and may destroy the window.
  std::shared_ptr<MessageQueue> queue;
  /// Of its class.
  ATOM atom = 0;
  /// Fills the background; null leaves that to the window.
  HBRUSH background = nullptr;
  std::u16string title;
  DWORD style = 0;
  /// On the screen, in pixels.
  RECT rect = {};
  bool isVisible = false;
  /// True after the first time shown, when it receives WM_SIZE.
  bool wasShown = false;
  /// Parent or owner, which takes this window along when destroyed. Null without one.
  HWND parent = nullptr;
  /// Bounds of what WM_PAINT asks for, within the client area; all sides 0 for nothing.
  RECT invalid = {};
  /// True when the background is to be filled before.
  bool isEraseDue = false;
};

/// All windows of all threads. Windows are handed out as copies; a handle is never used twice.
class WindowTable {
 public:
  static WindowTable& Instance();

  /// Adds a copy of `window` with a new handle and returns the handle.
  HWND Add(Window window);

  /// Removes the window and its messages. False for an unknown window.
  bool Remove(HWND handle);

  /// Removes the windows of a thread that has ended, without calling their procedures.
  void RemoveOfQueue(const MessageQueue& queue);

  /// No value for an unknown window.
  std::optional<Window> Find(HWND handle) const;
  std::vector<HWND> GetChildren(HWND parent) const;
  /// Handles of all windows, the oldest first.
  std::vector<HWND> GetAll() const;

  /// Tells the window's thread that something was drawn into the window.
  void NoteDrawing(HWND handle);

  /// Puts a message into the queue of the window's thread. False for an unknown window.
  bool Post(const MSG& message);

  /// False for an unknown window. The caller sends WM_SIZE where it is due.
  bool SetVisible(HWND handle, bool isVisible);
  bool SetRect(HWND handle, const RECT& rect);

  /// Adds a part of the client area to what is to be drawn; no value means all of it. Does nothing
  /// to hidden windows. False for an unknown window.
  bool Invalidate(HWND handle, const std::optional<RECT>& part, bool erase);
  /// Takes note that nothing is to be drawn. Returns the window as it was before; no value for an
  /// unknown one.
  std::optional<Window> Validate(HWND handle);

 private:
  mutable std::mutex mutex;
  std::map<HWND, Window> windows;
  ULONG_PTR lastNumber = 0x10000;
};

}  // namespace handheld
