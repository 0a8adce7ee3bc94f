#include <algorithm>
#include <utility>

#include "core/LastError.h"
#include "handheld.h"
#include "text/WideText.h"
#include "windows/DeviceScreen.h"
#include "windows/WindowClasses.h"
#include "windows/WindowTable.h"

namespace handheld {

namespace {

LPARAM PackSize(const RECT& rect) {
  const LONG width = rect.right - rect.left;
  const LONG height = rect.bottom - rect.top;
  return static_cast<LPARAM>(static_cast<DWORD>(height & 0xFFFF) << 16 |
                             static_cast<DWORD>(width & 0xFFFF));
}

/// Rectangle of a new window. CW_USEDEFAULT fills the screen.
RECT Place(int x, int y, int width, int height) {
  const Screen screen = CurrentScreen();
  const bool isPlaced = x != CW_USEDEFAULT;
  RECT rect;
  rect.left = isPlaced ? x : 0;
  rect.top = isPlaced && y != CW_USEDEFAULT ? y : 0;
  rect.right = rect.left + (width == CW_USEDEFAULT ? screen.width : std::max(width, 0));
  rect.bottom =
      rect.top +
      (width == CW_USEDEFAULT || height == CW_USEDEFAULT ? screen.height : std::max(height, 0));
  return rect;
}

/// Top-level window of this class and title, the latest of them. Null stands for any.
HWND FindLatest(LPCWSTR className, LPCWSTR title) {
  WindowTable& table = WindowTable::Instance();
  const auto windowClass =
      className != nullptr ? WindowClasses::Instance().Find(className) : std::nullopt;
  if (className != nullptr && !windowClass) {
    return nullptr;
  }
  const std::vector<HWND> handles = table.GetAll();
  const auto found = std::find_if(handles.rbegin(), handles.rend(), [&](HWND handle) {
    const auto window = table.Find(handle);
    return window && (!windowClass || window->atom == windowClass->atom) &&
           (title == nullptr || window->title == WideText(title));
  });
  return found == handles.rend() ? nullptr : *found;
}

/// Calls the window procedure directly when the window belongs to this thread.
void Tell(const Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (window.queue == MessageQueue::OfThisThread()) {
    window.procedure(window.handle, message, wParam, lParam);
  }
}

void Show(const Window& window, bool isVisible) {
  WindowTable::Instance().SetVisible(window.handle, isVisible);
  if (isVisible && !window.isVisible) {
    WindowTable::Instance().Invalidate(window.handle, std::nullopt, true);
  }
  if (isVisible && !window.wasShown) {
    Tell(window, WM_SIZE, 0, PackSize(window.rect));
  }
}

HWND Create(LPCWSTR className, LPCWSTR title, DWORD style, const RECT& rect, HWND parent) {
  if (className == nullptr) {
    return Fail<HWND>(ERROR_CANNOT_FIND_WINDOW_CLASS, nullptr);
  }
  const auto windowClass = WindowClasses::Instance().Find(className);
  if (!windowClass) {
    return Fail<HWND>(ERROR_CANNOT_FIND_WINDOW_CLASS, nullptr);
  }
  WindowTable& table = WindowTable::Instance();
  if (parent != nullptr && !table.Find(parent)) {
    return Fail<HWND>(ERROR_INVALID_WINDOW_HANDLE, nullptr);
  }

  Window window;
  window.procedure = windowClass->procedure;
  window.atom = windowClass->atom;
  window.background = windowClass->background;
  window.queue = MessageQueue::OfThisThread();
  window.title = WideText(title);
  window.style = style;
  window.rect = rect;
  window.parent = parent;
  window.handle = table.Add(window);
  if ((style & WS_VISIBLE) != 0) {
    Show(window, true);
  }
  return window.handle;
}

/// Sends WM_DESTROY to the window first and then destroys its children, while it still exists.
void Destroy(const Window& window) {
  WindowTable& table = WindowTable::Instance();
  Tell(window, WM_DESTROY, 0, 0);
  for (const HWND child : table.GetChildren(window.handle)) {
    if (const auto found = table.Find(child)) {
      Destroy(*found);
    }
  }
  table.Remove(window.handle);
}

/// Window of this thread that has the mouse. The display sends all of its input to its one window,
/// so that only the answers of the calls depend on it.
thread_local HWND capture = nullptr;

/// False when the window's class has no background.
bool FillBackground(HWND handle, HDC dc) {
  const auto window = WindowTable::Instance().Find(handle);
  if (!window || window->background == nullptr) {
    return false;
  }
  RECT client = {};
  GetClientRect(handle, &client);
  return FillRect(dc, &client, window->background) != 0;
}

std::optional<Window> FindOrFail(HWND handle) {
  auto window = WindowTable::Instance().Find(handle);
  if (!window) {
    SetError(ERROR_INVALID_WINDOW_HANDLE);
  }
  return window;
}

}  // namespace

extern "C" {

ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass) {
  return Guarded<ATOM>(0, [&]() -> ATOM {
    if (windowClass == nullptr || windowClass->lpfnWndProc == nullptr ||
        WideLength(windowClass->lpszClassName) == 0) {
      return Fail<ATOM>(ERROR_INVALID_PARAMETER, 0);
    }
    const ATOM atom = WindowClasses::Instance().Register(*windowClass);
    return atom != 0 ? atom : Fail<ATOM>(ERROR_CLASS_ALREADY_EXISTS, 0);
  });
}

HWND WINAPI CreateWindowExW(DWORD, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                            int width, int height, HWND parent, HANDLE, HINSTANCE, LPVOID) {
  return Guarded<HWND>(
      nullptr, [&] { return Create(className, title, style, Place(x, y, width, height), parent); });
}

BOOL WINAPI DestroyWindow(HWND window) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = FindOrFail(window);
    if (!found) {
      return FALSE;
    }
    if (found->queue != MessageQueue::OfThisThread()) {
      return Fail(ERROR_ACCESS_DENIED, FALSE);
    }
    Destroy(*found);
    return TRUE;
  });
}

BOOL WINAPI ShowWindow(HWND window, int command) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = FindOrFail(window);
    if (!found) {
      return FALSE;
    }
    Show(*found, command != SW_HIDE);
    return found->isVisible ? TRUE : FALSE;
  });
}

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = FindOrFail(window);
    if (!found) {
      return FALSE;
    }
    const RECT& before = found->rect;
    const RECT after = {x, y, x + std::max(width, 0), y + std::max(height, 0)};
    const bool isResized = after.right - after.left != before.right - before.left ||
                           after.bottom - after.top != before.bottom - before.top;
    WindowTable::Instance().SetRect(window, after);
    if (repaint && found->isVisible) {
      WindowTable::Instance().Invalidate(window, std::nullopt, true);
    }
    if (isResized) {
      Tell(*found, WM_SIZE, 0, PackSize(after));
    }
    return TRUE;
  });
}

BOOL WINAPI IsWindow(HWND window) {
  return Guarded<BOOL>(FALSE, [&] { return WindowTable::Instance().Find(window) ? TRUE : FALSE; });
}

BOOL WINAPI IsWindowVisible(HWND window) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = FindOrFail(window);
    return found && found->isVisible ? TRUE : FALSE;
  });
}

HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR title) {
  return Guarded<HWND>(nullptr, [&] { return FindLatest(className, title); });
}

BOOL WINAPI SetForegroundWindow(HWND window) {
  // Windows do not cover each other here.
  return Guarded<BOOL>(FALSE, [&] { return FindOrFail(window) ? TRUE : FALSE; });
}

BOOL WINAPI GetClientRect(HWND window, RECT* rect) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = FindOrFail(window);
    if (!found) {
      return FALSE;
    }
    if (rect == nullptr) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    *rect = {0, 0, found->rect.right - found->rect.left, found->rect.bottom - found->rect.top};
    return TRUE;
  });
}

BOOL WINAPI GetWindowRect(HWND window, RECT* rect) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = FindOrFail(window);
    if (!found) {
      return FALSE;
    }
    if (rect == nullptr) {
      return Fail(ERROR_INVALID_PARAMETER, FALSE);
    }
    *rect = found->rect;
    return TRUE;
  });
}

int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size) {
  return Guarded<int>(0, [&] {
    if (text == nullptr || size <= 0) {
      return Fail(ERROR_INVALID_PARAMETER, 0);
    }
    text[0] = 0;
    const auto found = FindOrFail(window);
    if (!found) {
      return 0;
    }
    const std::size_t length = found->title.copy(text, static_cast<std::size_t>(size) - 1);
    text[length] = 0;
    return static_cast<int>(length);
  });
}

HWND WINAPI GetParent(HWND window) {
  return Guarded<HWND>(nullptr, [&]() -> HWND {
    const auto found = FindOrFail(window);
    return found ? found->parent : nullptr;
  });
}

int WINAPI GetSystemMetrics(int index) {
  const Screen screen = CurrentScreen();
  switch (index) {
    case SM_CXSCREEN:
      return screen.width;
    case SM_CYSCREEN:
      return screen.height;
    default:
      return 0;
  }
}

HWND WINAPI SetCapture(HWND window) {
  return Guarded<HWND>(nullptr, [&]() -> HWND {
    const auto found = FindOrFail(window);
    if (!found || found->queue != MessageQueue::OfThisThread()) {
      return nullptr;
    }
    const HWND before = std::exchange(capture, window);
    return IsWindow(before) ? before : nullptr;
  });
}

BOOL WINAPI ReleaseCapture() {
  capture = nullptr;
  return TRUE;
}

LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_CLOSE:
      DestroyWindow(window);
      return 0;
    case WM_PAINT: {
      PAINTSTRUCT paint;
      BeginPaint(window, &paint);
      EndPaint(window, &paint);
      return 0;
    }
    case WM_ERASEBKGND:
      return FillBackground(window, reinterpret_cast<HDC>(wParam)) ? 1 : 0;
    default:
      return 0;
  }
}

}  // extern "C"

}  // namespace handheld
