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
  /// Queue of the thread that made it, which alone runs its procedure and may destroy it.
  std::shared_ptr<MessageQueue> queue;
  std::u16string title;
  DWORD style = 0;
  /// On the screen, in pixels.
  RECT rect = {};
  bool isVisible = false;
  /// Whether it was ever shown: the first time it learns its size.
  bool wasShown = false;
  /// Parent or owner: the window goes when that one does. Null when there is none.
  HWND parent = nullptr;
};

/// All windows of all threads. Windows are handed out as copies; a handle is never used twice.
class WindowTable {
 public:
  static WindowTable& Instance();

  /// Takes all of `window` but its handle, and returns that.
  HWND Add(Window window);

  /// Takes the window out, and its messages. False when it is not there.
  bool Remove(HWND handle);

  /// Takes out what a thread leaves behind at its end; no procedure is called any more.
  void RemoveOfQueue(const MessageQueue& queue);

  /// Nothing when there is no such window.
  std::optional<Window> Find(HWND handle) const;
  std::vector<HWND> GetChildren(HWND parent) const;
  /// Handles of all windows, the oldest first.
  std::vector<HWND> GetAll() const;

  /// Puts a message into the queue of the window's thread. False when there is no such window.
  bool Post(const MSG& message);

  /// Both false when there is no such window. The caller tells the window about it (WM_SIZE) where
  /// that is due.
  bool SetVisible(HWND handle, bool isVisible);
  bool SetRect(HWND handle, const RECT& rect);

 private:
  mutable std::mutex mutex;
  std::map<HWND, Window> windows;
  ULONG_PTR lastNumber = 0x10000;
};

/// The screen that windows lie on.
struct Screen {
  int width;
  int height;
  int dpi;
};

Screen CurrentScreen();

}  // namespace handheld
