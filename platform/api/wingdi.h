// Drawing calls of the device: device contexts, bitmaps, pens, brushes, fonts, regions, text.
#pragma once

#include <windef.h>

using HGDIOBJ = void*;
using HDC = struct HDC__*;
using HBITMAP = struct HBITMAP__*;
using HPEN = struct HPEN__*;
using HBRUSH = struct HBRUSH__*;
using HFONT = struct HFONT__*;
using HRGN = struct HRGN__*;

/// Result of SelectObject for an unusable object.
#define HGDI_ERROR (reinterpret_cast<HGDIOBJ>(static_cast<LONG_PTR>(-1)))
constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

constexpr COLORREF RGB(BYTE red, BYTE green, BYTE blue) {
  return static_cast<COLORREF>(red | (green << 8) | (blue << 16));
}
constexpr BYTE GetRValue(COLORREF color) {
  return static_cast<BYTE>(color);
}
constexpr BYTE GetGValue(COLORREF color) {
  return static_cast<BYTE>(color >> 8);
}
constexpr BYTE GetBValue(COLORREF color) {
  return static_cast<BYTE>(color >> 16);
}

// Device contexts.

constexpr int HORZRES = 8;
constexpr int VERTRES = 10;
constexpr int BITSPIXEL = 12;
constexpr int LOGPIXELSX = 88;
constexpr int LOGPIXELSY = 90;

extern "C" {
/// Context over the client area of a window; null means the whole screen. Release with ReleaseDC.
HDC WINAPI GetDC(HWND window);
/// Context over the whole window, frame included. Release with ReleaseDC.
HDC WINAPI GetWindowDC(HWND window);
int WINAPI ReleaseDC(HWND window, HDC dc);
/// Memory context compatible with `dc`; null means the screen. Delete with DeleteDC.
HDC WINAPI CreateCompatibleDC(HDC dc);
BOOL WINAPI DeleteDC(HDC dc);
int WINAPI GetDeviceCaps(HDC dc, int index);
}

// Objects.

struct BITMAP {
  LONG bmType;
  LONG bmWidth;
  LONG bmHeight;
  LONG bmWidthBytes;
  WORD bmPlanes;
  WORD bmBitsPixel;
  LPVOID bmBits;
};

constexpr int WHITE_BRUSH = 0;
constexpr int BLACK_BRUSH = 4;
constexpr int NULL_BRUSH = 5;
constexpr int WHITE_PEN = 6;
constexpr int BLACK_PEN = 7;
constexpr int NULL_PEN = 8;
constexpr int SYSTEM_FONT = 13;

extern "C" {
HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object);
BOOL WINAPI DeleteObject(HGDIOBJ object);
int WINAPI GetObjectW(HANDLE object, int size, LPVOID data);
HGDIOBJ WINAPI GetStockObject(int index);
}

// Bitmaps.

struct BITMAPINFOHEADER {
  DWORD biSize;
  LONG biWidth;
  /// Positive: the rows in memory run from the bottom up. Negative: from the top down.
  LONG biHeight;
  WORD biPlanes;
  WORD biBitCount;
  DWORD biCompression;
  DWORD biSizeImage;
  LONG biXPelsPerMeter;
  LONG biYPelsPerMeter;
  DWORD biClrUsed;
  DWORD biClrImportant;
};
static_assert(sizeof(BITMAPINFOHEADER) == 40);

struct RGBQUAD {
  BYTE rgbBlue;
  BYTE rgbGreen;
  BYTE rgbRed;
  BYTE rgbReserved;  // Unused.
};

struct BITMAPINFO {
  BITMAPINFOHEADER bmiHeader;
  RGBQUAD bmiColors[1];
};

constexpr DWORD BI_RGB = 0;
/// Three (BI_BITFIELDS) or four (BI_ALPHABITFIELDS) colour masks follow the header.
constexpr DWORD BI_BITFIELDS = 3;
constexpr DWORD BI_ALPHABITFIELDS = 6;
constexpr UINT DIB_RGB_COLORS = 0;

constexpr DWORD SRCCOPY = 0x00CC0020;
constexpr DWORD NOTSRCCOPY = 0x00330008;

constexpr BYTE AC_SRC_OVER = 0;
constexpr BYTE AC_SRC_ALPHA = 1;

struct BLENDFUNCTION {
  BYTE BlendOp;
  BYTE BlendFlags;
  BYTE SourceConstantAlpha;
  BYTE AlphaFormat;
};

extern "C" {
HBITMAP WINAPI CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, LPVOID* bits,
                                HANDLE section, DWORD offset);
HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height);
BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                   int sourceY, DWORD operation);
/// Negative extents mirror.
BOOL WINAPI StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, DWORD operation);
BOOL WINAPI AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, BLENDFUNCTION blend);
}

// Pens, brushes, shapes.

constexpr int PS_SOLID = 0;
/// Only pens of width 1 are dashed; wider ones are solid.
constexpr int PS_DASH = 1;
constexpr int PS_NULL = 5;

extern "C" {
HPEN WINAPI CreatePen(int style, int width, COLORREF color);
HBRUSH WINAPI CreateSolidBrush(COLORREF color);
int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush);
BOOL WINAPI MoveToEx(HDC dc, int x, int y, POINT* previous);
/// Pens of width 1 do not draw the end point.
BOOL WINAPI LineTo(HDC dc, int x, int y);
BOOL WINAPI Polyline(HDC dc, const POINT* points, int count);
BOOL WINAPI Ellipse(HDC dc, int left, int top, int right, int bottom);
BOOL WINAPI Rectangle(HDC dc, int left, int top, int right, int bottom);
BOOL WINAPI RoundRect(HDC dc, int left, int top, int right, int bottom, int cornerWidth,
                      int cornerHeight);
COLORREF WINAPI SetPixel(HDC dc, int x, int y, COLORREF color);
COLORREF WINAPI GetPixel(HDC dc, int x, int y);
/// Completes all drawing of the calling thread: pixels of sections may be read afterwards.
BOOL WINAPI GdiFlush();
}

// Regions.

/// Kinds of region; results of SelectClipRgn.
constexpr int RGN_ERROR = 0;
constexpr int NULLREGION = 1;
constexpr int SIMPLEREGION = 2;
constexpr int COMPLEXREGION = 3;

extern "C" {
HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom);
/// Copies the region into the context; null ends clipping.
int WINAPI SelectClipRgn(HDC dc, HRGN region);
}

// Fonts and text.

constexpr int LF_FACESIZE = 32;
constexpr LONG FW_NORMAL = 400;
constexpr LONG FW_BOLD = 700;

struct LOGFONTW {
  /// Positive: height of the character cell. Negative: height of the em square.
  LONG lfHeight;
  LONG lfWidth;
  /// Tenths of a degree, counter-clockwise.
  LONG lfEscapement;
  LONG lfOrientation;
  LONG lfWeight;
  BYTE lfItalic;
  BYTE lfUnderline;
  BYTE lfStrikeOut;
  BYTE lfCharSet;
  BYTE lfOutPrecision;
  BYTE lfClipPrecision;
  BYTE lfQuality;
  BYTE lfPitchAndFamily;
  WCHAR lfFaceName[LF_FACESIZE];
};
static_assert(sizeof(LOGFONTW) == 92);

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;

constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_CALCRECT = 0x0400;
/// "&" is a character like any other.
constexpr UINT DT_NOPREFIX = 0x0800;

extern "C" {
int WINAPI AddFontResourceW(LPCWSTR fileName);
BOOL WINAPI RemoveFontResourceW(LPCWSTR fileName);
HFONT WINAPI CreateFontIndirectW(const LOGFONTW* description);
COLORREF WINAPI SetTextColor(HDC dc, COLORREF color);
int WINAPI SetBkMode(HDC dc, int mode);
/// Returns the height of the text; with DT_CALCRECT only measures it into `rect`.
int WINAPI DrawTextW(HDC dc, LPCWSTR text, int length, RECT* rect, UINT format);
}
