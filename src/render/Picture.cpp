#include "render/Picture.h"

#include <imaging.h>
#include <objbase.h>

#include <new>

namespace ferolin {

namespace {

constexpr WORD BITS_PER_PIXEL = 32;
constexpr LONG PIXELS_PER_METRE = 11811;  // 300 dpi

struct AlphaBitmapInfo {
  BITMAPINFOHEADER header;
  DWORD redMask;
  DWORD greenMask;
  DWORD blueMask;
  DWORD alphaMask;
};

/// Releases an interface at the end of a scope.
template <class Interface>
class ComPointer {
 public:
  ComPointer() = default;
  ~ComPointer() {
    if (pointer != nullptr) {
      pointer->Release();
    }
  }
  ComPointer(const ComPointer&) = delete;
  ComPointer& operator=(const ComPointer&) = delete;

  Interface** Out() { return &pointer; }
  Interface* operator->() const { return pointer; }
  Interface& operator*() const { return *pointer; }

 private:
  Interface* pointer = nullptr;
};

/// Rows run from the top down, so that the decoder can write straight into them.
HBITMAP CreateAlphaBitmap(UINT width, UINT height, void** pixels) {
  AlphaBitmapInfo info = {};
  info.header.biSize = sizeof info.header;
  info.header.biWidth = static_cast<LONG>(width);
  info.header.biHeight = -static_cast<LONG>(height);
  info.header.biPlanes = 1;
  info.header.biBitCount = BITS_PER_PIXEL;
  info.header.biCompression = BI_ALPHABITFIELDS;
  info.header.biXPelsPerMeter = PIXELS_PER_METRE;
  info.header.biYPelsPerMeter = PIXELS_PER_METRE;
  info.redMask = 0x00FF0000;
  info.greenMask = 0x0000FF00;
  info.blueMask = 0x000000FF;
  info.alphaMask = 0xFF000000;
  return CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS,
                          pixels, nullptr, 0);
}

}  // namespace

bool Picture::Load(const WideString& path) {
  Release();
  ComPointer<IImagingFactory> factory;
  if (FAILED(CoCreateInstance(CLSID_ImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IImagingFactory, reinterpret_cast<LPVOID*>(factory.Out())))) {
    return false;
  }
  ComPointer<IImage> image;
  if (FAILED(factory->CreateImageFromFile(path.c_str(), image.Out()))) {
    return false;
  }
  Decode(*factory, *image);
  return true;
}

/// Failures are not reported: pixels that cannot be decoded stay all zero.
void Picture::Decode(IImagingFactory& factory, IImage& image) {
  ImageInfo info = {};
  image.GetImageInfo(&info);
  void* pixels = nullptr;
  surface.EnsureDC(nullptr);
  surface.SetBitmap(CreateAlphaBitmap(info.Width, info.Height, &pixels));
  ComPointer<IBitmapImage> bitmap;
  if (!surface.HasBitmap() ||
      FAILED(factory.CreateBitmapFromImage(&image, info.Width, info.Height, PixelFormat32bppARGB,
                                           InterpolationHintDefault, bitmap.Out()))) {
    return;
  }
  const RECT whole = {0, 0, static_cast<LONG>(info.Width), static_cast<LONG>(info.Height)};
  BitmapData data = {};
  data.Width = info.Width;
  data.Height = info.Height;
  data.Stride = static_cast<INT>(info.Width * (BITS_PER_PIXEL / 8));
  data.PixelFormat = PixelFormat32bppARGB;
  data.Scan0 = pixels;
  if (SUCCEEDED(bitmap->LockBits(&whole, ImageLockModeRead | ImageLockModeUserInputBuf,
                                 PixelFormat32bppARGB, &data))) {
    PremultiplyAlpha(static_cast<BYTE*>(pixels), std::size_t{info.Width} * info.Height);
    bitmap->UnlockBits(&data);
  }
}

void Picture::Draw(HDC dc, const RECT& target) const {
  if (surface.HasBitmap()) {
    const SIZE size = GetSize();
    StretchBlt(dc, target.left, target.top, target.right - target.left, target.bottom - target.top,
               surface.GetDC(), 0, 0, size.cx, size.cy, SRCCOPY);
  }
}

void Picture::DrawBlended(HDC dc, const RECT& target, BYTE alpha) const {
  if (surface.HasBitmap()) {
    const SIZE size = GetSize();
    AlphaBlend(dc, target.left, target.top, target.right - target.left, target.bottom - target.top,
               surface.GetDC(), 0, 0, size.cx, size.cy,
               BLENDFUNCTION{AC_SRC_OVER, 0, alpha, AC_SRC_ALPHA});
  }
}

void Picture::Release() {
  surface.Release();
}

std::unique_ptr<Picture> LoadPicture(const WideString& path) {
  std::unique_ptr<Picture> picture(new (std::nothrow) Picture);
  if (picture != nullptr && !picture->Load(path)) {
    picture.reset();
  }
  return picture;
}

void PremultiplyAlpha(BYTE* pixels, std::size_t count) {
  for (BYTE* pixel = pixels; pixel != pixels + 4 * count; pixel += 4) {
    const unsigned alpha = pixel[3];
    for (int channel = 0; channel < 3; ++channel) {
      pixel[channel] = static_cast<BYTE>(pixel[channel] * alpha >> 8);
    }
  }
}

}  // namespace ferolin
