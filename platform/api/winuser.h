// Windows and messages of the device.
#pragma once

#include <windef.h>

using WNDPROC = LRESULT(CALLBACK*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

struct MSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
};

struct WNDCLASSW {
  UINT style;
  WNDPROC lpfnWndProc;
  int cbClsExtra;
  int cbWndExtra;
  HINSTANCE hInstance;
  HANDLE hIcon;
  HANDLE hCursor;
  HANDLE hbrBackground;
  LPCWSTR lpszMenuName;
  LPCWSTR lpszClassName;
};

constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;

constexpr DWORD WS_POPUP = 0x80000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
/// Place or size of a new window that fills the screen.
constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000);
constexpr int SW_HIDE = 0;
constexpr int SW_SHOW = 5;
constexpr UINT PM_REMOVE = 1;

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
BOOL WINAPI IsWindow(HWND window);
BOOL WINAPI IsWindowVisible(HWND window);
BOOL WINAPI GetClientRect(HWND window, RECT* rect);
BOOL WINAPI GetWindowRect(HWND window, RECT* rect);
int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size);
HWND WINAPI GetParent(HWND window);
LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

UINT WINAPI RegisterWindowMessageW(LPCWSTR name);
BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void WINAPI PostQuitMessage(int exitCode);
BOOL WINAPI PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove);
BOOL WINAPI GetMessageW(MSG* message, HWND window, UINT first, UINT last);
LRESULT WINAPI DispatchMessageW(const MSG* message);
/// Waits for a message of the calling thread or the time-out; always called without handles.
DWORD WINAPI MsgWaitForMultipleObjectsEx(DWORD count, const HANDLE* handles, DWORD milliseconds,
                                         DWORD wakeMask, DWORD flags);
}
