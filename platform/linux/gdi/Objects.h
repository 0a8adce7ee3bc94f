// Drawing objects behind the handles that programs hold.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "gdi/Raster.h"

namespace handheld::gdi {

class SizedFont;

enum class ObjectKind { BITMAP, PEN, BRUSH, FONT, REGION, DEVICE_CONTEXT };

/// What all objects have. `selections` and `isDeletePending` belong to the object table and its lock; the rest of an
/// object never changes after it was made (device contexts and what fonts are drawn by apart).
struct Object {
  explicit Object(ObjectKind objectKind) : kind(objectKind) {}
  virtual ~Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  const ObjectKind kind;
  HGDIOBJ handle = nullptr;
  /// In how many device contexts it is selected.
  int selections = 0;
  /// Deleted while selected: goes when it is selected nowhere any more.
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
  /// Whether the program may write into the memory itself.
  bool isSection = false;
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

  /// What draws it, found when it was used first and with these registered fonts. Belongs to FontLock.
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
