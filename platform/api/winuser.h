// Windows and messages of the device.
#pragma once

#include <windef.h>
#include <wingdi.h>

using WNDPROC = LRESULT(CALLBACK*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

struct MSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
};

/// What BeginPaint hands out and EndPaint takes back.
struct PAINTSTRUCT {
  HDC hdc;
  /// TRUE when the window has no background of its own and is to draw it.
  BOOL fErase;
  /// Bounds of what is to be drawn; drawing elsewhere has no effect.
  RECT rcPaint;
  BOOL fRestore;         // Unused.
  BOOL fIncUpdate;       // Unused.
  BYTE rgbReserved[32];  // Unused.
};

struct WNDCLASSW {
  UINT style;
  WNDPROC lpfnWndProc;
  int cbClsExtra;
  int cbWndExtra;
  HINSTANCE hInstance;
  HANDLE hIcon;
  HANDLE hCursor;
  /// Fills the background before WM_PAINT; null leaves it to the window.
  HBRUSH hbrBackground;
  LPCWSTR lpszMenuName;
  LPCWSTR lpszClassName;
};

constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_ACTIVATE = 0x0006;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SETTINGCHANGE = 0x001A;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_POWERBROADCAST = 0x0218;
/// wParam of WM_POWERBROADCAST: the machine has woken up.
constexpr WPARAM PBT_APMRESUMEAUTOMATIC = 0x0012;

// Keys: wParam of WM_KEYDOWN and WM_KEYUP. Letters and digits have the codes of their characters.
constexpr int VK_BACK = 0x08;
constexpr int VK_RETURN = 0x0D;
constexpr int VK_ESCAPE = 0x1B;
constexpr int VK_HOME = 0x24;
constexpr int VK_LEFT = 0x25;
constexpr int VK_UP = 0x26;
constexpr int VK_RIGHT = 0x27;
constexpr int VK_DOWN = 0x28;
constexpr int VK_DELETE = 0x2E;

/// Class style: the second of two quick clicks comes as WM_LBUTTONDBLCLK.
constexpr UINT CS_DBLCLKS = 0x0008;
constexpr DWORD WS_POPUP = 0x80000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
/// Place or size of a new window that fills the screen.
constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000);
constexpr int SW_HIDE = 0;
constexpr int SW_SHOW = 5;
constexpr UINT PM_REMOVE = 1;

// Measures of the screen in pixels.
constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;

constexpr DWORD QS_ALLINPUT = 0x04FF;
constexpr DWORD MWMO_INPUTAVAILABLE = 4;
constexpr DWORD WAIT_OBJECT_0 = 0;
constexpr DWORD WAIT_TIMEOUT = 258;

extern "C" {
ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass);
HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x,
                            int y, int width, int height, HWND parent, HANDLE menu,
                            HINSTANCE instance, LPVOID parameter);
BOOL WINAPI DestroyWindow(HWND window);
BOOL WINAPI ShowWindow(HWND window, int command);
/// Also makes WM_SIZE come when the size changes.
BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL WINAPI IsWindow(HWND window);
BOOL WINAPI IsWindowVisible(HWND window);
/// The latest window of this class and title; null stands for any. Null when there is none.
HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR title);
BOOL WINAPI SetForegroundWindow(HWND window);
BOOL WINAPI GetClientRect(HWND window, RECT* rect);
BOOL WINAPI GetWindowRect(HWND window, RECT* rect);
int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size);
HWND WINAPI GetParent(HWND window);
LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
int WINAPI GetSystemMetrics(int index);

/// Adds to what WM_PAINT will ask for; a null `rect` means the whole window. Hidden windows stay as
/// they are: they are drawn anew when shown.
BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
/// Sends WM_PAINT at once where there is something to draw.
BOOL WINAPI UpdateWindow(HWND window);
/// Context that draws inside of `paint->rcPaint` only. WM_PAINT comes again until this is called.
HDC WINAPI BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);

/// Directs the mouse to a window of the calling thread, also outside of the window. Returns the
/// window that had it before, or null.
HWND WINAPI SetCapture(HWND window);
BOOL WINAPI ReleaseCapture();

UINT WINAPI RegisterWindowMessageW(LPCWSTR name);
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void WINAPI PostQuitMessage(int exitCode);
BOOL WINAPI PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove);
BOOL WINAPI GetMessageW(MSG* message, HWND window, UINT first, UINT last);
/// Keys become no characters here: nothing asks for characters.
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageW(const MSG* message);
/// Waits for a message of the calling thread or the time-out; always called without handles.
DWORD WINAPI MsgWaitForMultipleObjectsEx(DWORD count, const HANDLE* handles, DWORD milliseconds,
                                         DWORD wakeMask, DWORD flags);

using TIMERPROC = void(CALLBACK*)(HWND window, UINT message, UINT_PTR timer, DWORD ticks);

/// Posts WM_TIMER with `timer` whenever the period, at least 10 ms, has passed; never twice before
/// the first is taken. Replaces the window's timer of the same number. Always called with a window
/// and without a procedure.
UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR timer, UINT milliseconds, TIMERPROC procedure);
BOOL WINAPI KillTimer(HWND window, UINT_PTR timer);
}
