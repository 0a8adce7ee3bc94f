#include "fine/LargePicture.h"

#include "fine/Pictures.h"

namespace handheld::fine {

namespace {

std::string PathBeside(const std::string& path) {
  const std::size_t slash = path.rfind('/') + 1;
  return path.substr(0, slash) + "4x/" + path.substr(slash);
}

/// The same pixels with their alpha left out.
SurfacePointer OpaqueView(cairo_surface_t* surface) {
  return SurfacePointer(cairo_image_surface_create_for_data(
      cairo_image_surface_get_data(surface), CAIRO_FORMAT_RGB24,
      cairo_image_surface_get_width(surface), cairo_image_surface_get_height(surface),
      cairo_image_surface_get_stride(surface)));
}

}  // namespace

LargePicture::LargePicture(const std::string& path, int width, int height)
    : path(PathBeside(path)), width(width), height(height) {}

void LargePicture::Read() {
  isRead = true;
  SurfacePointer read(cairo_image_surface_create_from_png(path.c_str()));
  if (cairo_surface_status(read.get()) != CAIRO_STATUS_SUCCESS) {
    return;
  }
  const int largeWidth = cairo_image_surface_get_width(read.get());
  const int largeHeight = cairo_image_surface_get_height(read.get());
  if (largeWidth > width && largeWidth * height == largeHeight * width) {
    whole = std::move(read);
  }
}

cairo_surface_t* LargePicture::GetScaled(int scaledWidth, int scaledHeight, bool isOpaque) {
  if (!isRead) {
    Read();
  }
  if (whole == nullptr) {
    return nullptr;
  }
  if (scaled != nullptr && isOpaque == isScaledOpaque &&
      cairo_image_surface_get_width(scaled.get()) == scaledWidth &&
      cairo_image_surface_get_height(scaled.get()) == scaledHeight) {
    return scaled.get();
  }
  scaled.reset(cairo_image_surface_create(isOpaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32,
                                          scaledWidth, scaledHeight));
  isScaledOpaque = isOpaque;
  const SurfacePointer opaque = isOpaque ? OpaqueView(whole.get()) : nullptr;
  Twin canvas(SurfacePointer(cairo_surface_reference(scaled.get())));
  DrawPicture(canvas, {0, 0, scaledWidth * 1.0, scaledHeight * 1.0},
              isOpaque ? opaque.get() : whole.get(),
              {0, 0, cairo_image_surface_get_width(whole.get()) * 1.0,
               cairo_image_surface_get_height(whole.get()) * 1.0},
              {});
  return scaled.get();
}

}  // namespace handheld::fine
