#pragma once

#include <windows.h>

#include <memory>

#include "base/WideString.h"
#include "render/Surface.h"

struct IImage;
struct IImagingFactory;

namespace ferolin {

/// Alpha of a pixel that hides what lies below it.
inline constexpr BYTE OPAQUE_ALPHA = 255;

/// A picture file, decoded into 32-bit pixels whose colours are multiplied by their alpha. A
/// picture that is not loaded has size 0 x 0 and draws nothing. Loading needs COM on the calling
/// thread. No lock.
class Picture {
 public:
  Picture() = default;
  ~Picture() { Release(); }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  /// Releases the picture held and decodes the file. False when the file is no readable picture. A
  /// file that can be read but not converted counts as loaded and is wholly transparent.
  bool Load(const WideString& path);

  SIZE GetSize() const { return surface.GetSize(); }

  /// Draws the whole picture into the rectangle, scaled; alpha is ignored.
  void Draw(HDC dc, const RECT& target) const;

  /// Blends the whole picture into the rectangle, scaled. `alpha` weakens it further: from 0,
  /// invisible, to OPAQUE_ALPHA, as it is.
  void DrawBlended(HDC dc, const RECT& target, BYTE alpha) const;

  void Release();

 private:
  void Decode(IImagingFactory& factory, IImage& image);

  Surface surface;
};

/// The picture in that file; null when it cannot be loaded.
std::unique_ptr<Picture> LoadPicture(const WideString& path);

/// Multiplies the colours of `count` pixels (bytes B, G, R, A) by their alpha and divides by 256.
/// An opaque 255 becomes 254.
void PremultiplyAlpha(BYTE* pixels, std::size_t count);

}  // namespace ferolin
