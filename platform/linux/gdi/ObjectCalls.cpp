// Calls that make, select, describe and delete drawing objects and device contexts.
#include <algorithm>
#include <cstring>
#include <utility>

#include "core/LastError.h"
#include "gdi/DeviceContext.h"
#include "gdi/ObjectTable.h"
#include "handheld.h"
#include "windows/DeviceScreen.h"
#include "windows/WindowTable.h"

namespace handheld {

int GdiObjectsAlive() {
  return gdi::ObjectTable::Instance().GetCount();
}

namespace gdi {

namespace {

template <typename Handle, typename Kind, typename... Arguments>
Handle Make(Arguments... arguments) {
  return Guarded<Handle>(nullptr, [&] {
    return static_cast<Handle>(ObjectTable::Instance().Add(std::make_shared<Kind>(arguments...)));
  });
}

template <typename Data>
int Describe(const Data& description, int size, LPVOID data) {
  constexpr int WHOLE = sizeof(Data);
  if (data == nullptr) {
    return WHOLE;
  }
  if (size < WHOLE) {
    return 0;
  }
  std::memcpy(data, &description, sizeof(Data));
  return WHOLE;
}

BITMAP DescriptionOf(const Bitmap& bitmap) {
  const Raster& raster = bitmap.raster;
  BITMAP description = {};
  description.bmWidth = raster.width;
  description.bmHeight = raster.height;
  description.bmWidthBytes = bitmap.bitsPerPixel == 1 ? 2 : RowBytes(raster.width, raster.format);
  description.bmPlanes = 1;
  description.bmBitsPixel = static_cast<WORD>(bitmap.bitsPerPixel);
  description.bmBits = bitmap.isSection ? bitmap.memory.get() : nullptr;
  return description;
}

HDC WindowContext(HWND window) {
  return Guarded<HDC>(nullptr, [&]() -> HDC {
    const std::shared_ptr<WindowSurface> surface = WindowSurfaces::Instance().GetSurface(window);
    return surface == nullptr ? Fail<HDC>(ERROR_INVALID_WINDOW_HANDLE, nullptr)
                              : AddContext(surface);
  });
}

/// True when the masks behind the header name the format that the bit count implies.
bool HasKnownMasks(const BITMAPINFO& info) {
  const BITMAPINFOHEADER& header = info.bmiHeader;
  if (header.biCompression == BI_RGB) {
    return true;
  }
  if (header.biCompression != BI_BITFIELDS && header.biCompression != BI_ALPHABITFIELDS) {
    return false;
  }
  DWORD masks[3];
  std::memcpy(masks, reinterpret_cast<const BYTE*>(&info) + sizeof(BITMAPINFOHEADER),
              sizeof(masks));
  if (header.biBitCount == 16) {
    return masks[0] == 0x7C00 && masks[1] == 0x03E0 && masks[2] == 0x1F;
  }
  return masks[0] == 0x00FF0000 && masks[1] == 0x0000FF00 && masks[2] == 0x000000FF;
}

constexpr LONG LOGICAL_PIXELS_PER_METRE = 3780;  // 96 dpi

std::shared_ptr<Bitmap> MakeSection(const BITMAPINFO* info) {
  if (info == nullptr) {
    return nullptr;
  }
  const BITMAPINFOHEADER& header = info->bmiHeader;
  if (header.biSize < sizeof(BITMAPINFOHEADER) || header.biPlanes != 1) {
    return nullptr;
  }
  if (header.biBitCount != 16 && header.biBitCount != 32) {
    return nullptr;
  }
  if (!HasKnownMasks(*info) || header.biHeight == INT32_MIN) {
    return nullptr;
  }
  std::shared_ptr<Bitmap> bitmap = MakeBitmap(
      header.biWidth, std::abs(header.biHeight),
      header.biBitCount == 16 ? PixelFormat::RGB555 : PixelFormat::ARGB8888, header.biHeight < 0);
  if (bitmap != nullptr) {
    bitmap->isSection = true;
    bitmap->isLogical = header.biXPelsPerMeter == LOGICAL_PIXELS_PER_METRE &&
                        header.biYPelsPerMeter == LOGICAL_PIXELS_PER_METRE;
  }
  return bitmap;
}

/// A bitmap in the format of the context's target; 32 bits a pixel for windows.
std::shared_ptr<Bitmap> MakeCompatible(const DeviceContext& context, int width, int height) {
  const bool isEmpty = width == 0 || height == 0;
  const bool isMonochrome = isEmpty || (context.IsMemory() && context.bitmap->bitsPerPixel == 1);
  std::shared_ptr<Bitmap> bitmap =
      isEmpty ? MakeBitmap(1, 1, PixelFormat::ARGB8888, true)
              : MakeBitmap(std::abs(width), std::abs(height), context.GetRaster().format, true);
  if (bitmap == nullptr) {
    return nullptr;
  }
  if (isMonochrome) {
    bitmap->bitsPerPixel = 1;
  }
  if (context.IsMemory()) {
    bitmap->isSection = context.bitmap->isSection && !isMonochrome;
  }
  return bitmap;
}

}  // namespace

extern "C" {

HDC WINAPI GetDC(HWND window) {
  return WindowContext(window);
}

HDC WINAPI GetWindowDC(HWND window) {
  // Windows have no frame: the client area is the window.
  return WindowContext(window);
}

int WINAPI ReleaseDC(HWND window, HDC dc) {
  const auto context = ObjectTable::Instance().Find<DeviceContext>(dc);
  if (context == nullptr || context->IsMemory()) {
    return 0;
  }
  const bool isReleased = DeleteContext(dc);
  WindowTable::Instance().NoteDrawing(window);
  return isReleased ? 1 : 0;
}

HDC WINAPI CreateCompatibleDC(HDC dc) {
  return Guarded<HDC>(nullptr, [&]() -> HDC {
    if (dc != nullptr && ObjectTable::Instance().Find<DeviceContext>(dc) == nullptr) {
      return nullptr;
    }
    return AddContext(nullptr);
  });
}

BOOL WINAPI DeleteDC(HDC dc) {
  return DeleteContext(dc);
}

int WINAPI GetDeviceCaps(HDC dc, int index) {
  if (ObjectTable::Instance().Find<DeviceContext>(dc) == nullptr) {
    return 0;
  }
  const Screen screen = CurrentScreen();
  switch (index) {
    case HORZRES:
      return screen.width;
    case VERTRES:
      return screen.height;
    case BITSPIXEL:
      return 32;
    case LOGPIXELSX:
    case LOGPIXELSY:
      return screen.dpi;
    default:
      return 0;
  }
}

HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object) {
  const UsedContext context(dc);
  const std::shared_ptr<Object> found = ObjectTable::Instance().Find(object);
  return context && found != nullptr ? SelectInto(*context, found) : nullptr;
}

BOOL WINAPI DeleteObject(HGDIOBJ object) {
  ObjectTable& table = ObjectTable::Instance();
  if (table.Find<DeviceContext>(object) != nullptr) {
    return DeleteContext(static_cast<HDC>(object));
  }
  return table.Delete(object);
}

int WINAPI GetObjectW(HANDLE object, int size, LPVOID data) {
  const std::shared_ptr<Object> found = ObjectTable::Instance().Find(object);
  if (found == nullptr) {
    return 0;
  }
  if (found->kind == ObjectKind::BITMAP) {
    return Describe(DescriptionOf(static_cast<const Bitmap&>(*found)), size, data);
  }
  if (found->kind == ObjectKind::FONT) {
    return Describe(static_cast<const Font&>(*found).description, size, data);
  }
  return 0;
}

HGDIOBJ WINAPI GetStockObject(int index) {
  return ObjectTable::Instance().GetStock(index);
}

HBITMAP WINAPI CreateDIBSection(HDC, const BITMAPINFO* info, UINT, LPVOID* bits, HANDLE, DWORD) {
  return Guarded<HBITMAP>(nullptr, [&]() -> HBITMAP {
    if (bits != nullptr) {
      *bits = nullptr;
    }
    const std::shared_ptr<Bitmap> bitmap = MakeSection(info);
    if (bitmap == nullptr) {
      return Fail<HBITMAP>(ERROR_INVALID_PARAMETER, nullptr);
    }
    const auto handle = static_cast<HBITMAP>(ObjectTable::Instance().Add(bitmap));
    if (handle != nullptr && bits != nullptr) {
      *bits = bitmap->memory.get();
    }
    return handle;
  });
}

HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height) {
  return Guarded<HBITMAP>(nullptr, [&]() -> HBITMAP {
    const UsedContext context(dc);
    if (!context) {
      return nullptr;
    }
    const std::shared_ptr<Bitmap> bitmap = MakeCompatible(*context, width, height);
    return bitmap == nullptr ? nullptr : static_cast<HBITMAP>(ObjectTable::Instance().Add(bitmap));
  });
}

HPEN WINAPI CreatePen(int style, int width, COLORREF color) {
  if (style == PS_NULL) {
    return static_cast<HPEN>(GetStockObject(NULL_PEN));
  }
  const int pixels = std::max(std::abs(width), 1);
  // Only thin pens are dashed; unknown styles are solid.
  const int known = style == PS_DASH && pixels == 1 ? PS_DASH : PS_SOLID;
  return Make<HPEN, Pen>(known, pixels, color);
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color) {
  return Make<HBRUSH, Brush>(color, false);
}

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* description) {
  return description == nullptr ? nullptr : Make<HFONT, Font>(*description);
}

HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom) {
  RECT rect = {std::min(left, right), std::min(top, bottom), std::max(left, right),
               std::max(top, bottom)};
  if (IsEmpty(rect)) {
    rect = {0, 0, 0, 0};
  }
  return Make<HRGN, Region>(rect);
}

int WINAPI SelectClipRgn(HDC dc, HRGN region) {
  const UsedContext context(dc);
  if (!context) {
    return RGN_ERROR;
  }
  if (region == nullptr) {
    context->clip.reset();
    return SIMPLEREGION;
  }
  const auto found = ObjectTable::Instance().Find<Region>(region);
  if (found == nullptr) {
    return RGN_ERROR;
  }
  return static_cast<int>(reinterpret_cast<LONG_PTR>(SelectInto(*context, found)));
}

COLORREF WINAPI SetTextColor(HDC dc, COLORREF color) {
  const UsedContext context(dc);
  return context ? std::exchange(context->textColor, color) : CLR_INVALID;
}

int WINAPI SetBkMode(HDC dc, int mode) {
  const UsedContext context(dc);
  if (!context || (mode != TRANSPARENT && mode != OPAQUE)) {
    return 0;
  }
  return std::exchange(context->backgroundMode, mode);
}

}  // extern "C"

}  // namespace gdi

}  // namespace handheld
