#include "Imaging.h"

#include <imaging.h>
#include <wincodec.h>

#include <new>

#include "../shared/Counted.h"

// This file calls the system's own.
#undef CoCreateInstance

namespace {

constexpr UINT BYTES_PER_PIXEL = 4;

/// Owns one reference to an interface.
template <class Interface>
class Reference {
 public:
  Reference() = default;
  ~Reference() {
    if (pointer != nullptr) {
      pointer->Release();
    }
  }
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;

  Interface** Out() { return &pointer; }
  Interface* Get() const { return pointer; }
  Interface* operator->() const { return pointer; }

 private:
  Interface* pointer = nullptr;
};

/// Pixels of a picture, decoded by LockBits.
class BitmapImage final : public handheld::Counted<IBitmapImage> {
 public:
  explicit BitmapImage(IWICBitmapSource* wanted) : source(wanted) { source->AddRef(); }
  ~BitmapImage() override { source->Release(); }

  HRESULT WINAPI GetSize(SIZE* size) override {
    UINT width = 0;
    UINT height = 0;
    const HRESULT result = source->GetSize(&width, &height);
    *size = {static_cast<LONG>(width), static_cast<LONG>(height)};
    return result;
  }

  HRESULT WINAPI GetPixelFormatID(PixelFormatID* format) override {
    *format = PixelFormat32bppARGB;
    return S_OK;
  }

  /// Copies into the caller's own memory only.
  HRESULT WINAPI LockBits(const RECT* rect, UINT flags, PixelFormatID format,
                          BitmapData* data) override {
    if (flags != (ImageLockModeRead | ImageLockModeUserInputBuf) ||
        format != PixelFormat32bppARGB || data->Stride <= 0) {
      return E_INVALIDARG;
    }
    const WICRect part = {static_cast<INT>(rect->left), static_cast<INT>(rect->top),
                          static_cast<INT>(rect->right - rect->left),
                          static_cast<INT>(rect->bottom - rect->top)};
    const UINT stride = static_cast<UINT>(data->Stride);
    return source->CopyPixels(&part, stride, stride * static_cast<UINT>(part.Height),
                              static_cast<BYTE*>(data->Scan0));
  }

  HRESULT WINAPI UnlockBits(const BitmapData*) override { return S_OK; }

 private:
  IWICBitmapSource* const source;
};

/// The first frame of a picture file.
class Image final : public handheld::Counted<IImage> {
 public:
  explicit Image(IWICBitmapSource* wanted) : frame(wanted) { frame->AddRef(); }
  ~Image() override { frame->Release(); }

  HRESULT WINAPI GetPhysicalDimension(SIZE*) override { return E_NOTIMPL; }

  HRESULT WINAPI GetImageInfo(ImageInfo* info) override {
    *info = {};
    info->PixelFormat = PixelFormat32bppARGB;
    return frame->GetSize(&info->Width, &info->Height);
  }

  IWICBitmapSource* const frame;
};

class ImagingFactory final : public handheld::Counted<IImagingFactory> {
 public:
  explicit ImagingFactory(IWICImagingFactory* wanted) : components(wanted) { components->AddRef(); }
  ~ImagingFactory() override { components->Release(); }

  HRESULT WINAPI CreateImageFromStream(IStream*, IImage** image) override { return NotHere(image); }

  HRESULT WINAPI CreateImageFromFile(LPCWSTR fileName, IImage** image) override {
    *image = nullptr;
    Reference<IWICBitmapDecoder> decoder;
    HRESULT result = components->CreateDecoderFromFilename(
        fileName, nullptr, GENERIC_READ, WICDecodeMetadataCacheOnDemand, decoder.Out());
    if (FAILED(result)) {
      return result;
    }
    Reference<IWICBitmapFrameDecode> frame;
    result = decoder->GetFrame(0, frame.Out());
    if (FAILED(result)) {
      return result;
    }
    *image = new (std::nothrow) Image(frame.Get());
    return *image != nullptr ? S_OK : E_OUTOFMEMORY;
  }

  HRESULT WINAPI CreateImageFromBuffer(LPCVOID, UINT, int, IImage** image) override {
    return NotHere(image);
  }

  HRESULT WINAPI CreateNewBitmap(UINT, UINT, PixelFormatID, IBitmapImage** bitmap) override {
    return NotHere(bitmap);
  }

  /// Supports the picture's own size only. `image` must come from CreateImageFromFile.
  HRESULT WINAPI CreateBitmapFromImage(IImage* image, UINT width, UINT height, PixelFormatID format,
                                       InterpolationHint, IBitmapImage** bitmap) override {
    *bitmap = nullptr;
    IWICBitmapSource* const frame = static_cast<const Image*>(image)->frame;
    UINT ownWidth = 0;
    UINT ownHeight = 0;
    frame->GetSize(&ownWidth, &ownHeight);
    const bool isOwnSize =
        (width == 0 || width == ownWidth) && (height == 0 || height == ownHeight);
    if (!isOwnSize || format != PixelFormat32bppARGB) {
      return E_INVALIDARG;
    }
    Reference<IWICFormatConverter> converter;
    HRESULT result = components->CreateFormatConverter(converter.Out());
    if (FAILED(result)) {
      return result;
    }
    result = converter->Initialize(frame, GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone,
                                   nullptr, 0, WICBitmapPaletteTypeCustom);
    if (FAILED(result)) {
      return result;
    }
    *bitmap = new (std::nothrow) BitmapImage(converter.Get());
    return *bitmap != nullptr ? S_OK : E_OUTOFMEMORY;
  }

 private:
  template <class Interface>
  static HRESULT NotHere(Interface** object) {
    *object = nullptr;
    return E_NOTIMPL;
  }

  IWICImagingFactory* const components;
};

HRESULT CreateComponents(Reference<IWICImagingFactory>& components) {
  return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                          IID_PPV_ARGS(components.Out()));
}

}  // namespace

void handheld::LoadImaging() {
  Reference<IWICImagingFactory> components;
  Reference<IWICBitmapDecoder> decoder;
  if (SUCCEEDED(CreateComponents(components))) {
    components->CreateDecoder(GUID_ContainerFormatPng, nullptr, decoder.Out());
  }
}

extern "C" HRESULT WINAPI HandheldCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context,
                                                 REFIID iid, LPVOID* object) {
  if (!IsEqualGUID(clsid, CLSID_ImagingFactory)) {
    return CoCreateInstance(clsid, outer, context, iid, object);
  }
  *object = nullptr;
  if (outer != nullptr || !IsEqualGUID(iid, IID_IImagingFactory)) {
    return E_NOINTERFACE;
  }
  Reference<IWICImagingFactory> components;
  const HRESULT result = CreateComponents(components);
  if (FAILED(result)) {
    return result;
  }
  *object = static_cast<IImagingFactory*>(new (std::nothrow) ImagingFactory(components.Get()));
  return *object != nullptr ? S_OK : E_OUTOFMEMORY;
}
