// A window of the device on the machine's own display.
#pragma once

#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "windows/MessageQueue.h"

struct SDL_Renderer;
struct SDL_Texture;
struct SDL_Window;
union SDL_Event;

namespace handheld {

/// Shows one window of the device through X11, Wayland or KMS and posts mouse, touch and keyboard
/// messages to it: WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_MOUSEMOVE (while pressed) and WM_LBUTTONUP
/// in pixels of the window, WM_KEYDOWN, and WM_CLOSE, which leaves the display open. The picture
/// keeps its proportions and stays sharp when the frame has another size than the window. Belongs to
/// the thread that made it, which must be the window's; works while that thread waits for messages.
class Display final : private MessageQueue::Waiter {
 public:
  /// False when there is certainly no display: no X11 or Wayland server is named and standard input
  /// is no console of this machine (a remote user must not take over its screen).
  static bool IsPresent();

  /// Null when the display cannot be opened; `error` then holds the reason. `window` must outlive
  /// the display.
  static std::unique_ptr<Display> Open(HWND window, bool isFullscreen, std::string& error);

  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;
  ~Display();

  /// UTF-8.
  void SetTitle(const std::string& title);

  void ToggleFullscreen();

  /// Brings the window to the front, also when it is minimized.
  void Raise();

  /// Calls `observer` with the frame's size in pixels once the frame has been resized: for a frame
  /// that is being dragged, when it rests. Called by this thread while it waits for messages; must
  /// not destroy the display.
  void ObserveSize(std::function<void(int width, int height)> observer);

 private:
  Display(HWND windowToShow, int windowWidth, int windowHeight);

  using TimePoint = std::chrono::steady_clock::time_point;

  void Wait(MessageQueue::Deadline deadline) override;
  void Wake() override;

  bool Create(bool isFullscreen);
  bool IsStale() const;
  void WaitForEvent(MessageQueue::Deadline deadline);
  void WaitForWake(MessageQueue::Deadline deadline);
  void Take(const SDL_Event& event);
  void PostMouse(UINT message, int x, int y) const;
  void TellSize();
  void ChooseScaling();
  /// False when there is no texture of that size to be had.
  bool MakeTexture(int width, int height);
  void Draw();

  const HWND window;
  /// Size of the frame while it does not fill the screen.
  int frameWidth;
  int frameHeight;
  std::function<void(int width, int height)> sizeObserver;
  /// When the size is told; nothing while it rests.
  std::optional<TimePoint> sizeDue;
  SDL_Window* frame = nullptr;
  SDL_Renderer* renderer = nullptr;
  /// In the size of the pixels shown last.
  SDL_Texture* texture = nullptr;
  int textureWidth = 0;
  int textureHeight = 0;
  /// Version of the pixels that the texture holds.
  std::uint64_t versionShown = 0;
  bool isStale = true;
  bool isPressed = false;
  TimePoint lastDrawing;

  /// Number of SDL's events that end a wait. Where SDL can only poll, `woken` does.
  std::uint32_t wakeEvent = 0;
  bool canWaitForEvents = false;
  std::mutex mutex;
  std::condition_variable woken;
  /// Whether a wake has not been answered yet. Guarded by `mutex`.
  bool isWoken = false;
};

}  // namespace handheld
