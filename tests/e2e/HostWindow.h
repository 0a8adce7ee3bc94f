#pragma once

#include <windows.h>

#include <vector>

namespace e2e {

/// Parameters of a message that came.
struct Notification {
  WPARAM wParam;
  LPARAM lParam;
  bool operator==(const Notification&) const = default;
};

/// The window that a host shows and is notified through. Messages are taken off the queue of the
/// thread that made it.
class HostWindow {
 public:
  explicit HostWindow(int width = 240, int height = 320);
  ~HostWindow() { Destroy(); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  HWND Get() const { return window; }
  void Destroy();

  /// Waits until at least `count` more messages `message` have come, no longer than so many real
  /// milliseconds, and returns all that came.
  std::vector<Notification> WaitFor(UINT message, std::size_t count, int longestMs = 10'000);

  /// The messages `message` that have come already.
  std::vector<Notification> Take(UINT message);

 private:
  HWND window;
};

}  // namespace e2e
