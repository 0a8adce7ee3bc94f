#include "gdi/PictureFiles.h"

#include "gdi/ObjectTable.h"

namespace handheld::gdi {

void NotePictureFile(const void* pixels, const std::string& path) {
  if (const std::shared_ptr<Bitmap> bitmap = ObjectTable::Instance().FindBitmap(pixels)) {
    bitmap->largePicture =
        std::make_unique<fine::LargePicture>(path, bitmap->raster.width, bitmap->raster.height);
  }
}

}  // namespace handheld::gdi
