// Device contexts: target, tools and state of drawing.
#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <optional>

#include "gdi/Objects.h"
#include "gdi/WindowSurfaces.h"

namespace handheld::gdi {

/// Guarded by the lock of the context.
struct DeviceContext : Object {
  static constexpr ObjectKind KIND = ObjectKind::DEVICE_CONTEXT;

  /// Draws into the window surface, or without one into the selected bitmap.
  explicit DeviceContext(std::shared_ptr<WindowSurface> surface);

  bool IsMemory() const { return window == nullptr; }
  /// Contexts of one window share the lock of its pixels.
  std::mutex& GetMutex() { return window == nullptr ? ownMutex : window->mutex; }
  const Raster& GetRaster() const { return window == nullptr ? bitmap->raster : window->raster; }
  Target GetDrawingTarget() const;

  const std::shared_ptr<WindowSurface> window;
  std::shared_ptr<Bitmap> bitmap;
  /// Selected before `bitmap`.
  std::weak_ptr<Bitmap> formerBitmap;
  std::shared_ptr<Pen> pen;
  std::shared_ptr<Brush> brush;
  std::shared_ptr<Font> font;
  /// Part of the window that can be drawn into: what WM_PAINT asked for. No value means all of it.
  std::optional<RECT> visible;
  /// Chosen by the program, within the visible part.
  std::optional<RECT> clip;
  POINT position = {0, 0};
  COLORREF textColor = RGB(0, 0, 0);
  int backgroundMode = OPAQUE;

 private:
  std::mutex ownMutex;
};

/// Colour behind text and in the gaps of dashed lines in background mode OPAQUE.
constexpr COLORREF BACKGROUND_COLOR = RGB(255, 255, 255);

/// A device context in use: found by its handle and locked. Empty when the handle names no context.
class UsedContext {
 public:
  enum class Purpose { STATE, DRAWING };

  explicit UsedContext(HDC handle, Purpose purpose = Purpose::STATE);

  explicit operator bool() const { return context != nullptr; }
  DeviceContext* operator->() const { return context.get(); }
  DeviceContext& operator*() const { return *context; }

 private:
  std::shared_ptr<DeviceContext> context;
  std::unique_lock<std::mutex> lock;
};

/// Two contexts in use, the first one for drawing. They may be the same. Empty unless both exist.
class UsedPair {
 public:
  UsedPair(HDC targetHandle, HDC sourceHandle);

  explicit operator bool() const { return target != nullptr && source != nullptr; }
  DeviceContext& GetTarget() const { return *target; }
  const DeviceContext& GetSource() const { return *source; }

 private:
  std::shared_ptr<DeviceContext> target;
  std::shared_ptr<DeviceContext> source;
  std::unique_lock<std::mutex> targetLock;
  std::unique_lock<std::mutex> sourceLock;
};

/// Makes a context with the system's pen, brush, font and bitmap and adds it to the table. Null
/// when the table is full.
HDC AddContext(std::shared_ptr<WindowSurface> surface);

/// Selects the object and returns the handle of the former one. A region is copied, and its kind is
/// returned. Null when this object cannot be selected into this context. The caller holds the lock
/// of the context.
HGDIOBJ SelectInto(DeviceContext& context, const std::shared_ptr<Object>& object);

/// Removes the context from the table and deselects its objects. False for an unknown context.
bool DeleteContext(HDC handle);

}  // namespace handheld::gdi
