// Drawing objects behind the handles that programs hold.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "fine/LargePicture.h"
#include "fine/Twin.h"
#include "gdi/Raster.h"

namespace handheld::gdi {

class SizedFont;

enum class ObjectKind { BITMAP, PEN, BRUSH, FONT, REGION, DEVICE_CONTEXT };

/// Base of all objects. `selections` and `isDeletePending` are guarded by the lock of the object
/// table. The rest does not change once made, apart from device contexts and the cached SizedFont
/// of a font.
struct Object {
  explicit Object(ObjectKind objectKind) : kind(objectKind) {}
  virtual ~Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  const ObjectKind kind;
  HGDIOBJ handle = nullptr;
  /// Number of device contexts that have it selected.
  int selections = 0;
  /// Deleted while selected; removed with the last deselection.
  bool isDeletePending = false;
  /// Belongs to the system and is never deleted.
  bool isStock = false;
};

struct Bitmap : Object {
  static constexpr ObjectKind KIND = ObjectKind::BITMAP;
  Bitmap() : Object(KIND) {}

  struct Free {
    void operator()(std::uint8_t* memory) const { std::free(memory); }
  };
  std::unique_ptr<std::uint8_t[], Free> memory;
  Raster raster;
  int bitsPerPixel = 32;
  /// True when the program may write into the memory itself.
  bool isSection = false;
  /// True for 96 dots per inch: its pixels are logical ones, whatever the screen's resolution.
  bool isLogical = false;
  /// What is drawn into a bitmap of logical pixels, in pixels of the screen. Null until then.
  std::unique_ptr<fine::Twin> twin;
  /// Set for the pixels of a picture file.
  std::unique_ptr<fine::LargePicture> largePicture;
};

struct Pen : Object {
  static constexpr ObjectKind KIND = ObjectKind::PEN;
  Pen(int penStyle, int penWidth, COLORREF penColor)
      : Object(KIND), style(penStyle), width(penWidth), color(penColor) {}

  const int style;
  /// In pixels, at least 1.
  const int width;
  const COLORREF color;
};

struct Brush : Object {
  static constexpr ObjectKind KIND = ObjectKind::BRUSH;
  Brush(COLORREF brushColor, bool isNullBrush)
      : Object(KIND), color(brushColor), isNull(isNullBrush) {}

  const COLORREF color;
  const bool isNull;
};

struct Font : Object {
  static constexpr ObjectKind KIND = ObjectKind::FONT;
  explicit Font(const LOGFONTW& fontDescription) : Object(KIND), description(fontDescription) {}

  const LOGFONTW description;

  /// Cache of SizedFontOf, found for this version of the registered fonts. Guarded by FontLock.
  mutable std::shared_ptr<SizedFont> sized;
  mutable std::uint64_t fontsVersion = 0;
};

/// A rectangle; empty ones have all sides 0.
struct Region : Object {
  static constexpr ObjectKind KIND = ObjectKind::REGION;
  explicit Region(const RECT& regionRect) : Object(KIND), rect(regionRect) {}

  const RECT rect;
};

/// Null when there is not enough memory or the size is out of range. Pixels start as 0.
std::shared_ptr<Bitmap> MakeBitmap(int width, int height, PixelFormat format, bool isTopDown);

}  // namespace handheld::gdi
