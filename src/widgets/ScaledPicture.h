#pragma once

#include <windows.h>

#include <memory>

#include "base/WideString.h"
#include "render/Picture.h"
#include "render/Surface.h"

namespace ferolin {

/// A large picture behind a view: the dial, the sky. Scaling and blending it would take most of a
/// frame's time, so the scaled picture is kept from frame to frame. Used under the engine's data
/// lock.
class ScaledPicture {
 public:
  ScaledPicture() = default;
  ~ScaledPicture() { scaled.Release(); }
  ScaledPicture(const ScaledPicture&) = delete;
  ScaledPicture& operator=(const ScaledPicture&) = delete;

  void Load(const WideString& path);
  bool IsLoaded() const { return picture != nullptr; }
  /// Size in the file; 0 x 0 when nothing is loaded.
  SIZE GetSize() const;

  /// Draws the picture into the rectangle, over that background colour.
  void Draw(HDC dc, const RECT& rect, COLORREF background);

 private:
  void Scale(HDC dc, SIZE size, COLORREF background);

  std::unique_ptr<Picture> picture;
  Surface scaled;  ///< the picture over its background, in the size drawn last
  COLORREF scaledBackground = 0;
};

}  // namespace ferolin
