#include "gdi/Objects.h"

#include "core/LargePages.h"

namespace handheld::gdi {

namespace {

constexpr std::int64_t MAX_BITMAP_BYTES = 0x7FFFFFFF;

}  // namespace

std::shared_ptr<Bitmap> MakeBitmap(int width, int height, PixelFormat format, bool isTopDown) {
  if (width <= 0 || height <= 0 || width > MAX_BITMAP_BYTES / BytesPerPixel(format) - 4) {
    return nullptr;
  }
  const std::int64_t rowBytes = RowBytes(width, format);
  if (rowBytes * height > MAX_BITMAP_BYTES) {
    return nullptr;
  }
  auto bitmap = std::make_shared<Bitmap>();
  bitmap->memory.reset(static_cast<std::uint8_t*>(
      std::calloc(static_cast<std::size_t>(height), static_cast<std::size_t>(rowBytes))));
  if (bitmap->memory == nullptr) {
    return nullptr;
  }
  PreferLargePages(bitmap->memory.get(), static_cast<std::size_t>(rowBytes * height));
  bitmap->bitsPerPixel = BytesPerPixel(format) * 8;
  Raster& raster = bitmap->raster;
  raster.width = width;
  raster.height = height;
  raster.format = format;
  raster.top = bitmap->memory.get() + (isTopDown ? 0 : rowBytes * (height - 1));
  raster.pitch = static_cast<std::ptrdiff_t>(isTopDown ? rowBytes : -rowBytes);
  return bitmap;
}

}  // namespace handheld::gdi
