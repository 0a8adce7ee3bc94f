#include "gdi/Twins.h"

#include <utility>

#include "fine/FineScale.h"
#include "fine/Pictures.h"

namespace handheld::gdi {

namespace {

/// Shows at first what the bitmap shows; drawn at another scale before, as finely as it can.
std::unique_ptr<fine::Twin> MakeTwin(const Bitmap& bitmap, double scale) {
  const Raster& raster = bitmap.raster;
  auto twin = std::make_unique<fine::Twin>(raster.width, raster.height, scale);
  if (!twin->IsUsable()) {
    return twin;
  }
  const fine::Part whole = {0, 0, 1.0 * raster.width, 1.0 * raster.height};
  if (bitmap.twin != nullptr && bitmap.twin->IsUsable()) {
    const double old = bitmap.twin->GetScale();
    fine::DrawPicture(*twin, whole, bitmap.twin->GetSurface(),
                      {0, 0, whole.right * old, whole.bottom * old}, {});
  } else {
    fine::PictureLook look;
    look.filter = CAIRO_FILTER_NEAREST;
    fine::DrawPicture(*twin, whole, CopyPixels(raster).get(), whole, look);
  }
  return twin;
}

}  // namespace

fine::Twin* TwinOf(const DeviceContext& context) {
  Bitmap& bitmap = *context.bitmap;
  if (!context.IsMemory() || !bitmap.isLogical) {
    return nullptr;
  }
  const double scale = fine::CurrentScale();
  if (scale == 0) {
    bitmap.twin.reset();
    return nullptr;
  }
  if (bitmap.twin == nullptr || bitmap.twin->GetScale() != scale) {
    bitmap.twin = MakeTwin(bitmap, scale);
  }
  if (!bitmap.twin->IsUsable()) {
    return nullptr;
  }
  bitmap.twin->SetClip(context.GetDrawingTarget().clip);
  return bitmap.twin.get();
}

fine::SurfacePointer CopyPixels(const Raster& raster) {
  const bool hasAlpha = raster.format == PixelFormat::ARGB8888;
  fine::SurfacePointer copy(cairo_image_surface_create(
      hasAlpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24, raster.width, raster.height));
  std::uint8_t* rows = cairo_image_surface_get_data(copy.get());
  if (rows == nullptr) {
    return copy;
  }
  const int stride = cairo_image_surface_get_stride(copy.get());
  for (int y = 0; y < raster.height; ++y, rows += stride) {
    auto* row = reinterpret_cast<std::uint32_t*>(rows);
    for (int x = 0; x < raster.width; ++x) {
      row[x] = hasAlpha ? raster.GetRow<const std::uint32_t>(y)[x]
                        : ArgbFrom555(raster.GetRow<const std::uint16_t>(y)[x]);
    }
  }
  cairo_surface_mark_dirty(copy.get());
  return copy;
}

}  // namespace handheld::gdi
