#include "display/Display.h"

#include <SDL2/SDL.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "display/DisplaySetup.h"
#include "handheld.h"

namespace handheld {

namespace {

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && value[0] != 0;
}

/// True for /dev/tty1 and the like; desktop and remote terminals have other paths.
bool IsOnConsole() {
  constexpr std::string_view CONSOLES = "/dev/tty";
  std::array<char, 64> name = {};
  if (ttyname_r(STDIN_FILENO, name.data(), name.size()) != 0) {
    return false;
  }
  const std::string_view path = name.data();
  return path.starts_with(CONSOLES) && path.size() > CONSOLES.size() &&
         path[CONSOLES.size()] >= '0' && path[CONSOLES.size()] <= '9';
}

struct Key {
  SDL_Keycode symbol;
  WPARAM code;
};

constexpr std::array KEYS = {
    Key{SDLK_ESCAPE, VK_ESCAPE},  Key{SDLK_RETURN, VK_RETURN}, Key{SDLK_KP_ENTER, VK_RETURN},
    Key{SDLK_BACKSPACE, VK_BACK}, Key{SDLK_HOME, VK_HOME},     Key{SDLK_DELETE, VK_DELETE},
    Key{SDLK_LEFT, VK_LEFT},      Key{SDLK_RIGHT, VK_RIGHT},   Key{SDLK_UP, VK_UP},
    Key{SDLK_DOWN, VK_DOWN},
};

/// Key code of the device; 0 for keys it does not have. On a keyboard without Latin letters the
/// position of the key decides.
WPARAM KeyCode(const SDL_Keysym& pressed) {
  const auto* key = std::find_if(
      KEYS.begin(), KEYS.end(), [&pressed](const Key& each) { return each.symbol == pressed.sym; });
  if (key != KEYS.end()) {
    return key->code;
  }
  if (pressed.sym >= SDLK_a && pressed.sym <= SDLK_z) {
    return WPARAM{'A'} + static_cast<WPARAM>(pressed.sym - SDLK_a);
  }
  if (pressed.sym >= SDLK_0 && pressed.sym <= SDLK_9) {
    return WPARAM{'0'} + static_cast<WPARAM>(pressed.sym - SDLK_0);
  }
  const bool isLatin = pressed.sym < 0x80;
  if (!isLatin && pressed.scancode >= SDL_SCANCODE_A && pressed.scancode <= SDL_SCANCODE_Z) {
    return WPARAM{'A'} + static_cast<WPARAM>(pressed.scancode - SDL_SCANCODE_A);
  }
  return 0;
}

LPARAM PackPoint(int x, int y) {
  return static_cast<LPARAM>(static_cast<DWORD>(y & 0xFFFF) << 16 | static_cast<DWORD>(x & 0xFFFF));
}

/// Bounds of the display. Without a window manager a full-screen frame has to be placed by the
/// program.
SDL_Rect ScreenOf(int displayIndex) {
  SDL_Rect screen = {};
  SDL_GetDisplayBounds(displayIndex, &screen);
  return screen;
}

/// Where there is no display, SDL goes on with a driver that draws into memory.
bool IsInvisible() {
  return std::string_view(SDL_GetCurrentVideoDriver()) == "offscreen";
}

/// Whether SDL's wait for events sleeps. With the other drivers it polls a thousand times a second.
bool CanWaitForEvents() {
  const std::string_view driver = SDL_GetCurrentVideoDriver();
  return driver == "x11" || driver == "wayland";
}

/// Where SDL can hand pixels to the display itself, they need no graphics driver: that of a machine
/// without such hardware takes 80 MB and several threads. SDL_RENDER_DRIVER in the environment
/// chooses another renderer.
void AvoidGraphicsDriver() {
  if (std::string_view(SDL_GetCurrentVideoDriver()) == "x11") {
    SDL_SetHint(SDL_HINT_RENDER_DRIVER, "software");
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  }
}

/// Refresh interval, 60 Hz.
constexpr std::chrono::milliseconds REFRESH_INTERVAL(16);

/// A frame that has kept its size for so long is not being dragged.
constexpr std::chrono::milliseconds SIZE_REST(100);

constexpr int ANYWHERE = static_cast<int>(SDL_WINDOWPOS_UNDEFINED);

}  // namespace

bool Display::IsPresent() {
  return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("SDL_VIDEODRIVER") || IsOnConsole();
}

std::unique_ptr<Display> Display::Open(HWND window, bool isFullscreen, std::string& error) {
  RECT client = {};
  if (GetClientRect(window, &client) == FALSE || client.right <= 0 || client.bottom <= 0) {
    error = "there is no window to show";
    return nullptr;
  }
  // SDL must not handle Ctrl-C.
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, AreDisplaysKeptAwake() ? "0" : "1");
  // A full-screen window must not change the desktop, neither its compositor nor other windows.
  SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
  SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
  if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
    error = SDL_GetError();
    return nullptr;
  }
  if (IsInvisible()) {
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    error = "there is no display";
    return nullptr;
  }
  AvoidGraphicsDriver();
  std::unique_ptr<Display> display(new Display(window, client.right, client.bottom));
  if (!display->Create(isFullscreen)) {
    error = SDL_GetError();
    return nullptr;
  }
  display->Draw();
  MessageQueue::OfThisThread()->SetWaiter(display.get());
  return display;
}

Display::Display(HWND windowToShow, int windowWidth, int windowHeight)
    : window(windowToShow), frameWidth(windowWidth), frameHeight(windowHeight) {}

Display::~Display() {
  MessageQueue::OfThisThread()->SetWaiter(nullptr);
  if (texture != nullptr) {
    SDL_DestroyTexture(texture);
  }
  if (renderer != nullptr) {
    SDL_DestroyRenderer(renderer);
  }
  if (frame != nullptr) {
    SDL_DestroyWindow(frame);
  }
  SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

bool Display::Create(bool isFullscreen) {
  wakeEvent = SDL_RegisterEvents(1);
  canWaitForEvents = CanWaitForEvents();
  const SDL_Rect place =
      isFullscreen ? ScreenOf(0) : SDL_Rect{ANYWHERE, ANYWHERE, frameWidth, frameHeight};
  frame = SDL_CreateWindow("", place.x, place.y, place.w, place.h, SDL_WINDOW_RESIZABLE);
  if (frame == nullptr) {
    return false;
  }
  if (isFullscreen) {
    SDL_SetWindowFullscreen(frame, SDL_WINDOW_FULLSCREEN_DESKTOP);
  }
  renderer = SDL_CreateRenderer(frame, -1, 0);
  return renderer != nullptr && MakeTexture(frameWidth, frameHeight);
}

bool Display::MakeTexture(int width, int height) {
  if (texture != nullptr) {
    SDL_DestroyTexture(texture);
  }
  texture = SDL_CreateTexture(renderer, SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STREAMING, width,
                              height);
  textureWidth = width;
  textureHeight = height;
  return texture != nullptr && SDL_RenderSetLogicalSize(renderer, width, height) == 0;
}

/// Answering input comes before drawing: what it changes is then in the picture.
void Display::Wait(MessageQueue::Deadline deadline) {
  if (IsStale()) {
    const auto nextDrawing = lastDrawing + REFRESH_INTERVAL;
    if (std::chrono::steady_clock::now() >= nextDrawing) {
      Draw();
    } else {
      deadline = std::min(deadline.value_or(nextDrawing), nextDrawing);
    }
  }
  if (sizeDue) {
    deadline = std::min(deadline.value_or(*sizeDue), *sizeDue);
  }
  if (canWaitForEvents) {
    WaitForEvent(deadline);
  } else {
    WaitForWake(deadline);
  }
  SDL_Event event = {};
  while (SDL_PollEvent(&event) != 0) {
    Take(event);
  }
  if (sizeDue && std::chrono::steady_clock::now() >= *sizeDue) {
    TellSize();
  }
}

void Display::WaitForEvent(MessageQueue::Deadline deadline) {
  using std::chrono::ceil;
  using std::chrono::milliseconds;
  constexpr int FOREVER = -1;
  int waitMs = FOREVER;
  if (deadline) {
    const auto wait = ceil<milliseconds>(*deadline - std::chrono::steady_clock::now());
    waitMs = static_cast<int>(std::clamp<milliseconds::rep>(wait.count(), 0, 60'000));
  }
  SDL_Event event = {};
  if (SDL_WaitEventTimeout(&event, waitMs) != 0) {
    Take(event);
  }
}

void Display::WaitForWake(MessageQueue::Deadline deadline) {
  const auto nextLook = std::chrono::steady_clock::now() + REFRESH_INTERVAL;
  std::unique_lock lock(mutex);
  woken.wait_until(lock, std::min(deadline.value_or(nextLook), nextLook),
                   [this] { return isWoken; });
  isWoken = false;
}

/// A drawing consists of many steps; one event tells of all.
void Display::Wake() {
  {
    const std::lock_guard lock(mutex);
    if (isWoken) {
      return;
    }
    isWoken = true;
  }
  if (canWaitForEvents) {
    SDL_Event event = {};
    event.type = wakeEvent;
    SDL_PushEvent(&event);
  } else {
    woken.notify_all();
  }
}

bool Display::IsStale() const {
  return isStale || WindowPixelsVersion(window) != versionShown;
}

void Display::SetTitle(const std::string& title) {
  SDL_SetWindowTitle(frame, title.c_str());
}

void Display::Raise() {
  if ((SDL_GetWindowFlags(frame) & SDL_WINDOW_MINIMIZED) != 0) {
    SDL_RestoreWindow(frame);
  }
  SDL_RaiseWindow(frame);
}

void Display::ToggleFullscreen() {
  if ((SDL_GetWindowFlags(frame) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0) {
    SDL_SetWindowFullscreen(frame, 0);
    SDL_SetWindowSize(frame, frameWidth, frameHeight);
    SDL_SetWindowPosition(frame, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
  } else {
    SDL_GetWindowSize(frame, &frameWidth, &frameHeight);
    const SDL_Rect screen = ScreenOf(SDL_GetWindowDisplayIndex(frame));
    SDL_SetWindowPosition(frame, screen.x, screen.y);
    SDL_SetWindowSize(frame, screen.w, screen.h);
    SDL_SetWindowFullscreen(frame, SDL_WINDOW_FULLSCREEN_DESKTOP);
  }
  isStale = true;
}

void Display::ObserveSize(std::function<void(int width, int height)> observer) {
  sizeObserver = std::move(observer);
}

void Display::TellSize() {
  sizeDue.reset();
  if (sizeObserver) {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(frame, &width, &height);
    sizeObserver(width, height);
  }
}

/// SDL reports fingers as the left button.
void Display::Take(const SDL_Event& event) {
  if (event.type == wakeEvent) {
    const std::lock_guard lock(mutex);
    isWoken = false;
    return;
  }
  switch (event.type) {
    case SDL_MOUSEBUTTONDOWN:
      if (event.button.button == SDL_BUTTON_LEFT) {
        isPressed = true;
        const bool isSecond = event.button.clicks % 2 == 0;
        PostMouse(isSecond ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, event.button.x, event.button.y);
      }
      break;
    case SDL_MOUSEMOTION:
      if (isPressed) {
        PostMouse(WM_MOUSEMOVE, event.motion.x, event.motion.y);
      }
      break;
    case SDL_MOUSEBUTTONUP:
      if (event.button.button == SDL_BUTTON_LEFT) {
        isPressed = false;
        PostMouse(WM_LBUTTONUP, event.button.x, event.button.y);
      }
      break;
    case SDL_KEYDOWN: {
      // Ctrl and Alt combinations belong to the desktop; repeated keys would make the view flicker.
      const bool isPlain = (event.key.keysym.mod & (KMOD_CTRL | KMOD_ALT | KMOD_GUI)) == 0;
      const WPARAM code = KeyCode(event.key.keysym);
      if (isPlain && event.key.repeat == 0 && code != 0) {
        PostMessageW(window, WM_KEYDOWN, code, 0);
      }
      break;
    }
    case SDL_WINDOWEVENT:
      if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) {
        sizeDue = std::chrono::steady_clock::now() + SIZE_REST;
      }
      isStale = true;
      break;
    case SDL_RENDER_TARGETS_RESET:
    case SDL_RENDER_DEVICE_RESET:
      versionShown = 0;
      isStale = true;
      break;
    case SDL_QUIT:
      PostMessageW(window, WM_CLOSE, 0, 0);
      break;
    default:
      break;
  }
}

void Display::PostMouse(UINT message, int x, int y) const {
  PostMessageW(window, message, 0, PackPoint(x, y));
}

/// Whole-number scaling keeps pixels sharp; at other sizes thin strokes would vanish in places, so
/// these are smoothed.
void Display::ChooseScaling() {
  float across = 1;
  float down = 1;
  SDL_RenderGetScale(renderer, &across, &down);
  SDL_SetTextureScaleMode(
      texture, across == std::floor(across) ? SDL_ScaleModeNearest : SDL_ScaleModeLinear);
}

void Display::Draw() {
  // Read before the pixels: drawing in between is then shown again by the next update.
  const std::uint64_t version = WindowPixelsVersion(window);
  if (version != versionShown) {
    const Pixels pixels = WindowPixels(window);
    const bool fits = pixels.width == textureWidth && pixels.height == textureHeight;
    if (!pixels.rows.empty() && (fits || MakeTexture(pixels.width, pixels.height))) {
      SDL_UpdateTexture(texture, nullptr, pixels.rows.data(), pixels.width * 4);
    }
    versionShown = version;
  }
  SDL_SetRenderDrawColor(renderer, 0, 0, 0, SDL_ALPHA_OPAQUE);
  SDL_RenderClear(renderer);
  if (versionShown != 0 && texture != nullptr) {
    ChooseScaling();
    SDL_RenderCopy(renderer, texture, nullptr, nullptr);
  }
  SDL_RenderPresent(renderer);
  isStale = false;
  lastDrawing = std::chrono::steady_clock::now();
}

}  // namespace handheld
