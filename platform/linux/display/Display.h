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

// Keys of WM_KEYDOWN beyond the letters, which have the codes of their capitals.
constexpr WPARAM KEY_ESCAPE = 0x1B;
constexpr WPARAM KEY_HOME = 0x24;
constexpr WPARAM KEY_LEFT = 0x25;
constexpr WPARAM KEY_RIGHT = 0x27;
constexpr WPARAM KEY_DELETE = 0x2E;

/// Shows what is drawn into one window of the device, by X11, Wayland or straight on the screen,
/// and posts to it what mouse, finger and keyboard do there. The picture keeps its proportions when
/// the frame around it is given another size; its pixels stay sharp. Everything is done on the
/// thread that makes it, whenever Update is called.
class Display {
 public:
  /// False when there is surely no display to open: no X11 or Wayland server is named, and standard
  /// input is no console of this machine (whose screen must not be taken from afar).
  static bool IsPresent();

  /// Null when the display cannot be opened; `error` tells why then. `window` must outlive the
  /// display.
  static std::unique_ptr<Display> Open(HWND window, bool isFullscreen, std::string& error);

  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;
  ~Display();

  /// Posts what the user did since the last call: WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_MOUSEMOVE
  /// (while pressed) and WM_LBUTTONUP in pixels of the window, WM_KEYDOWN, and WM_CLOSE, which
  /// leaves the display open. Shows what was drawn meanwhile.
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
