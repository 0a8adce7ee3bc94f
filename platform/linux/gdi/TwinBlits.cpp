#include "gdi/TwinBlits.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "fine/FineScale.h"
#include "fine/Pictures.h"
#include "gdi/Twins.h"

namespace handheld::gdi {

namespace {

constexpr double FULL_ALPHA = 255;

fine::Part PartOf(const Box& box) {
  const int left = box.width < 0 ? box.x + 1 : box.x;
  const int top = box.height < 0 ? box.y + 1 : box.y;
  return {1.0 * left, 1.0 * top, 1.0 * left + box.width, 1.0 * top + box.height};
}

bool IsWhole(const Box& box, const Raster& raster) {
  return box.x == 0 && box.y == 0 && box.width == raster.width && box.height == raster.height;
}

/// Draws the source's twin, larger version or pixels, whatever is best.
void DrawSource(fine::Twin& twin, const Box& to, const DeviceContext& source, const Box& from,
                const fine::PictureLook& look, bool usesAlpha) {
  const Raster& raster = source.GetRaster();
  const fine::Part target = PartOf(to);
  const int width = twin.Snap(target.right) - twin.Snap(target.left);
  const int height = twin.Snap(target.bottom) - twin.Snap(target.top);
  const fine::Twin* other = source.bitmap->twin != nullptr ? TwinOf(source) : nullptr;
  if (other != nullptr) {
    const double scale = other->GetScale();
    fine::Part part = PartOf(from);
    part = {std::round(part.left * scale), std::round(part.top * scale),
            std::round(part.right * scale), std::round(part.bottom * scale)};
    // Of the same size, it is cut and not scaled: rounded, lengths differ by a pixel.
    if (from.width == to.width && from.height == to.height) {
      part.right = part.left + width;
      part.bottom = part.top + height;
    }
    fine::DrawPicture(twin, target, other->GetSurface(), part, look);
    return;
  }
  if (source.bitmap->largePicture != nullptr && IsWhole(from, raster)) {
    const fine::Part whole = {0, 0, std::abs(width) * 1.0, std::abs(height) * 1.0};
    if (cairo_surface_t* large =
            source.bitmap->largePicture->GetScaled(std::abs(width), std::abs(height), !usesAlpha)) {
      fine::DrawPicture(twin, target, large, whole, look);
      return;
    }
  }
  fine::PictureLook ownLook = look;
  // Frames of a program's own are shown as they are without twins.
  if (raster.format == PixelFormat::RGB555) {
    ownLook.filter = CAIRO_FILTER_NEAREST;
  }
  const fine::SurfacePointer copy = CopyPixels(raster);
  if (usesAlpha) {
    fine::DrawPicture(twin, target, copy.get(), PartOf(from), ownLook);
    return;
  }
  const fine::SurfacePointer opaque(cairo_image_surface_create_for_data(
      cairo_image_surface_get_data(copy.get()), CAIRO_FORMAT_RGB24, raster.width, raster.height,
      cairo_image_surface_get_stride(copy.get())));
  fine::DrawPicture(twin, target, opaque.get(), PartOf(from), ownLook);
}

}  // namespace

void BlitIntoTwin(const DeviceContext& target, const Box& to, const DeviceContext& source,
                  const Box& from, CopyMode mode) {
  if (fine::Twin* twin = TwinOf(target)) {
    fine::PictureLook look;
    look.drawing = mode == CopyMode::INVERTED ? fine::Drawing::INVERT : fine::Drawing::COPY;
    DrawSource(*twin, to, source, from, look, false);
  }
}

void BlendIntoTwin(const DeviceContext& target, const Box& to, const DeviceContext& source,
                   const Box& from, const BLENDFUNCTION& blend) {
  if (fine::Twin* twin = TwinOf(target)) {
    fine::PictureLook look;
    look.drawing = fine::Drawing::BLEND;
    look.alpha = blend.SourceConstantAlpha / FULL_ALPHA;
    DrawSource(*twin, to, source, from, look, (blend.AlphaFormat & AC_SRC_ALPHA) != 0);
  }
}

namespace {

/// Twin of what a context shows, and whether that is turned clockwise.
struct ShownTwin {
  const fine::Twin* twin = nullptr;
  bool isTurned = false;
};

/// True when the pixels are those of the other bitmap, turned clockwise.
bool IsTurnedCopy(const Raster& turned, const Raster& upright) {
  if (turned.format != PixelFormat::RGB555 || upright.format != PixelFormat::RGB555 ||
      turned.width != upright.height || turned.height != upright.width) {
    return false;
  }
  for (int y = 0; y < upright.height; ++y) {
    const auto* row = upright.GetRow<const std::uint16_t>(y);
    const int column = turned.width - 1 - y;
    for (int x = 0; x < upright.width; ++x) {
      if (turned.GetRow<const std::uint16_t>(x)[column] != row[x]) {
        return false;
      }
    }
  }
  return true;
}

ShownTwin FindTwin(const DeviceContext& source) {
  if (!source.IsMemory() || fine::CurrentScale() == 0) {
    return {};
  }
  if (source.bitmap->twin != nullptr) {
    return {TwinOf(source), false};
  }
  const std::shared_ptr<Bitmap> former = source.formerBitmap.lock();
  if (former != nullptr && former->twin != nullptr && former->twin->IsUsable() &&
      IsTurnedCopy(source.GetRaster(), former->raster)) {
    return {former->twin.get(), true};
  }
  return {};
}

/// True when `length` pixels of the screen show `logical` ones at the twin's scale.
bool Fits(int length, int logical, double scale) {
  return length >= std::floor(logical * scale) && length < (logical + 1) * scale;
}

/// Steps through a twin's pixels that follow a target's.
struct TwinWalk {
  const std::uint32_t* start;
  std::ptrdiff_t right;
  std::ptrdiff_t down;
};

/// Starts at the twin's pixel for the first one of `to`, whatever its direction.
TwinWalk WalkThrough(const ShownTwin& shown, const Box& to) {
  const fine::Twin& twin = *shown.twin;
  const std::ptrdiff_t row = twin.GetHeight() > 1 ? twin.GetRow(1) - twin.GetRow(0) : 0;
  TwinWalk walk = {twin.GetRow(0), 1, row};
  if (shown.isTurned) {
    walk = {twin.GetRow(std::abs(to.width) - 1), -row, 1};
  }
  return walk;
}

/// Tiles keep both pictures in the cache while one of them is walked across its rows.
constexpr int TILE = 32;

void CopyTile(const Raster& raster, const RECT& tile, const Box& to, const TwinWalk& walk,
              std::uint32_t flip) {
  constexpr std::uint32_t COLOR = 0x00FFFFFF;
  const std::ptrdiff_t step = to.width < 0 ? -walk.right : walk.right;
  for (LONG y = tile.top; y < tile.bottom; ++y) {
    const std::uint32_t* from =
        walk.start + walk.down * std::abs(y - to.y) + walk.right * std::abs(tile.left - to.x);
    std::uint32_t* out = raster.GetRow<std::uint32_t>(y) + tile.left;
    if (step == 1) {
      for (LONG x = 0; x < tile.right - tile.left; ++x) {
        out[x] = (from[x] & COLOR) ^ flip;
      }
      continue;
    }
    for (LONG x = tile.left; x < tile.right; ++x, from += step) {
      *out++ = (*from & COLOR) ^ flip;
    }
  }
}

}  // namespace

bool ShowTwin(const DeviceContext& target, const Box& to, const DeviceContext& source,
              const Box& from, CopyMode mode) {
  const Target pixels = target.GetDrawingTarget();
  if (pixels.raster.format != PixelFormat::ARGB8888 || target.bitmap->isLogical ||
      !IsWhole(from, source.GetRaster())) {
    return false;
  }
  const ShownTwin shown = FindTwin(source);
  if (shown.twin == nullptr || !Fits(std::abs(to.width), from.width, shown.twin->GetScale()) ||
      !Fits(std::abs(to.height), from.height, shown.twin->GetScale())) {
    return false;
  }
  const fine::Part part = PartOf(to);
  const RECT box = {static_cast<LONG>(std::min(part.left, part.right)),
                    static_cast<LONG>(std::min(part.top, part.bottom)),
                    static_cast<LONG>(std::max(part.left, part.right)),
                    static_cast<LONG>(std::max(part.top, part.bottom))};
  const RECT visible = Intersect(box, pixels.clip);
  const TwinWalk walk = WalkThrough(shown, to);
  const std::uint32_t flip = mode == CopyMode::INVERTED ? 0xFFFFFFFF : 0;
  const LONG tileWidth = shown.isTurned ? TILE : std::max<LONG>(visible.right - visible.left, 1);
  for (LONG y = visible.top; y < visible.bottom; y += TILE) {
    for (LONG x = visible.left; x < visible.right; x += tileWidth) {
      CopyTile(pixels.raster,
               {x, y, std::min(x + tileWidth, visible.right), std::min(y + TILE, visible.bottom)},
               to, walk, flip);
    }
  }
  return true;
}

bool DrawLargePicture(const DeviceContext& target, const Box& to, const DeviceContext& source,
                      const Box& from, std::uint8_t alpha, bool usesAlpha) {
  const Target pixels = target.GetDrawingTarget();
  const Raster& raster = pixels.raster;
  if (!source.IsMemory() || source.bitmap->largePicture == nullptr || fine::CurrentScale() == 0 ||
      raster.format != PixelFormat::ARGB8888 || raster.pitch < 0 || target.bitmap->isLogical ||
      !IsWhole(from, source.GetRaster()) || to.width <= 0 || to.height <= 0) {
    return false;
  }
  cairo_surface_t* large = source.bitmap->largePicture->GetScaled(to.width, to.height, !usesAlpha);
  if (large == nullptr) {
    return false;
  }
  fine::Twin canvas(fine::SurfacePointer(
      cairo_image_surface_create_for_data(raster.top, CAIRO_FORMAT_RGB24, raster.width,
                                          raster.height, static_cast<int>(raster.pitch))));
  if (!canvas.IsUsable()) {
    return false;
  }
  canvas.SetClip(pixels.clip);
  fine::DrawPicture(canvas, PartOf(to), large, {0, 0, 1.0 * to.width, 1.0 * to.height},
                    {fine::Drawing::BLEND, alpha / FULL_ALPHA});
  return true;
}

}  // namespace handheld::gdi
