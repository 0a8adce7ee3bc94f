// A window of the device on the machine's own display.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

struct SDL_Renderer;
struct SDL_Texture;
struct SDL_Window;
union SDL_Event;

namespace handheld {

// Key codes of WM_KEYDOWN. Letters have the codes of their capitals.
constexpr WPARAM KEY_ESCAPE = 0x1B;
constexpr WPARAM KEY_HOME = 0x24;
constexpr WPARAM KEY_LEFT = 0x25;
constexpr WPARAM KEY_RIGHT = 0x27;
constexpr WPARAM KEY_DELETE = 0x2E;

/// Shows one window of the device through X11, Wayland or KMS and posts mouse, touch and keyboard
/// messages to it. The picture keeps its proportions and stays sharp when the frame is resized.
/// Belongs to the thread that made it; works only inside Update.
class Display {
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

  /// Posts the user's input since the last call: WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_MOUSEMOVE
  /// (while pressed) and WM_LBUTTONUP in pixels of the window, WM_KEYDOWN, and WM_CLOSE, which
  /// leaves the display open. Shows what has been drawn since.
  void Update();

  /// UTF-8.
  void SetTitle(const std::string& title);

  void ToggleFullscreen();

 private:
  Display(HWND windowToShow, int windowWidth, int windowHeight);

  bool Create(bool isFullscreen);
  void Take(const SDL_Event& event);
  void PostMouse(UINT message, int x, int y) const;
  void ChooseScaling();
  void Draw();

  const HWND window;
  const int width;
  const int height;
  SDL_Window* frame = nullptr;
  SDL_Renderer* renderer = nullptr;
  SDL_Texture* texture = nullptr;
  /// Version of the pixels that the texture holds.
  std::uint64_t versionShown = 0;
  bool isStale = true;
  bool isPressed = false;
};

}  // namespace handheld
