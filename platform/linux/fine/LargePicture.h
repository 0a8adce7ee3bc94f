// A picture file's larger version.
#pragma once

#include <string>

#include "fine/Twin.h"

namespace handheld::fine {

/// The file of the same name in the folder "4x" beside a picture: the same picture with more
/// pixels. Read at the first use.
class LargePicture {
 public:
  /// `path` is that of the picture itself, `width` x `height` its pixels.
  LargePicture(const std::string& path, int width, int height);

  /// The picture scaled to that many pixels, kept until another size is asked for; with `isOpaque`
  /// its alpha does not count. Null when there is no larger version of the same shape.
  cairo_surface_t* GetScaled(int scaledWidth, int scaledHeight, bool isOpaque);

 private:
  void Read();

  const std::string path;
  const int width;
  const int height;
  bool isRead = false;
  SurfacePointer whole;
  SurfacePointer scaled;
  bool isScaledOpaque = false;
};

}  // namespace handheld::fine
