#pragma once

#include <windows.h>

#include <memory>

#include "base/WideString.h"
#include "render/Picture.h"
#include "render/Surface.h"

namespace ferolin {

/// A large picture behind a view: the dial, the sky. Scaling and blending it takes most of a
/// frame's time, so the result is kept for the next frame. Used under the engine's data lock.
class ScaledPicture {
 public:
  ScaledPicture() = default;
  ~ScaledPicture() { scaled.Release(); }
  ScaledPicture(const ScaledPicture&) = delete;
  ScaledPicture& operator=(const ScaledPicture&) = delete;

  void Load(const WideString& path);
  bool IsLoaded() const { return picture != nullptr; }
  /// 0 x 0 while nothing is loaded.
  SIZE GetSize() const;

  /// Draws the picture into a rectangle of a frame whose background has that colour.
  void Draw(HDC dc, const RECT& rect, COLORREF background);

 private:
  void Scale(HDC dc, SIZE size, COLORREF background);

  std::unique_ptr<Picture> picture;
  Surface scaled;  ///< the picture over its background, as large as it was last drawn
  COLORREF scaledBackground = 0;
};

}  // namespace ferolin
