// The imaging library of the device: objects that decode picture files.
#include <imaging.h>
#include <windows.h>

#include <cstring>
#include <utility>

#include "../../shared/Counted.h"
#include "core/LastError.h"
#include "files/Paths.h"
#include "files/UnreadableFiles.h"
#include "gdi/PictureFiles.h"
#include "imaging/PngFile.h"

namespace handheld {

namespace {

constexpr int BYTES_PER_PIXEL = 4;

/// A picture with a valid file head. Decoded when a bitmap is made from it.
class Image final : public Counted<IImage> {
 public:
  explicit Image(PngFile pngFile) : file(std::move(pngFile)) {}

  HRESULT WINAPI GetPhysicalDimension(SIZE*) override { return E_NOTIMPL; }

  HRESULT WINAPI GetImageInfo(ImageInfo* info) override {
    if (info == nullptr) {
      return E_POINTER;
    }
    *info = {};
    info->PixelFormat = PixelFormat32bppARGB;
    info->Width = file.width;
    info->Height = file.height;
    return S_OK;
  }

  const PngFile file;
};

/// The decoded pixels.
class BitmapImage final : public Counted<IBitmapImage> {
 public:
  BitmapImage(const PngFile& file, std::vector<std::uint8_t> imagePixels)
      : path(file.path), width(file.width), height(file.height), pixels(std::move(imagePixels)) {}

  HRESULT WINAPI GetSize(SIZE* size) override {
    if (size == nullptr) {
      return E_POINTER;
    }
    *size = {static_cast<LONG>(width), static_cast<LONG>(height)};
    return S_OK;
  }

  HRESULT WINAPI GetPixelFormatID(PixelFormatID* format) override {
    if (format == nullptr) {
      return E_POINTER;
    }
    *format = PixelFormat32bppARGB;
    return S_OK;
  }

  /// Copies the whole picture into the caller's memory; refuses everything else.
  HRESULT WINAPI LockBits(const RECT* rect, UINT flags, PixelFormatID format,
                          BitmapData* data) override {
    const UINT intoOwnMemory = ImageLockModeRead | ImageLockModeUserInputBuf;
    if (rect == nullptr || data == nullptr || data->Scan0 == nullptr) {
      return E_POINTER;
    }
    const RECT whole = {0, 0, static_cast<LONG>(width), static_cast<LONG>(height)};
    const int rowBytes = static_cast<int>(width) * BYTES_PER_PIXEL;
    if (flags != intoOwnMemory || format != PixelFormat32bppARGB ||
        std::memcmp(rect, &whole, sizeof whole) != 0 || data->Stride < rowBytes) {
      return E_INVALIDARG;
    }
    auto* row = static_cast<std::uint8_t*>(data->Scan0);
    for (std::size_t y = 0; y < height; ++y, row += data->Stride) {
      std::memcpy(row, pixels.data() + y * static_cast<std::size_t>(rowBytes),
                  static_cast<std::size_t>(rowBytes));
    }
    gdi::NotePictureFile(data->Scan0, path);
    return S_OK;
  }

  HRESULT WINAPI UnlockBits(const BitmapData*) override { return S_OK; }

 private:
  const std::string path;
  const unsigned width;
  const unsigned height;
  const std::vector<std::uint8_t> pixels;
};

class ImagingFactory final : public Counted<IImagingFactory> {
 public:
  HRESULT WINAPI CreateImageFromStream(IStream*, IImage** image) override { return NotHere(image); }

  HRESULT WINAPI CreateImageFromFile(LPCWSTR fileName, IImage** image) override {
    return Guarded<HRESULT>(E_OUTOFMEMORY, [&]() -> HRESULT {
      if (fileName == nullptr || image == nullptr) {
        return E_POINTER;
      }
      *image = nullptr;
      const Location location = Locate(fileName);
      auto file = location.exists ? PngFile::Open(location.path) : std::nullopt;
      if (!file) {
        AddUnreadableFile(location.path);
        return E_FAIL;
      }
      *image = new Image(std::move(*file));
      return S_OK;
    });
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
    return Guarded<HRESULT>(E_OUTOFMEMORY, [&]() -> HRESULT {
      if (image == nullptr || bitmap == nullptr) {
        return E_POINTER;
      }
      *bitmap = nullptr;
      const PngFile& file = static_cast<const Image*>(image)->file;
      const bool isOwnSize =
          (width == 0 || width == file.width) && (height == 0 || height == file.height);
      if (!isOwnSize || format != PixelFormat32bppARGB) {
        return E_INVALIDARG;
      }
      auto pixels = file.Decode();
      if (!pixels) {
        AddUnreadableFile(file.path);
        return E_FAIL;
      }
      *bitmap = new BitmapImage(file, std::move(*pixels));
      return S_OK;
    });
  }

 private:
  template <class Interface>
  static HRESULT NotHere(Interface** object) {
    if (object != nullptr) {
      *object = nullptr;
    }
    return E_NOTIMPL;
  }
};

bool IsSame(const GUID& left, const GUID& right) {
  return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}

}  // namespace

extern "C" {

HRESULT WINAPI CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD, REFIID iid,
                                LPVOID* object) {
  return Guarded<HRESULT>(E_OUTOFMEMORY, [&]() -> HRESULT {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = nullptr;
    if (!IsSame(clsid, CLSID_ImagingFactory)) {
      return REGDB_E_CLASSNOTREG;
    }
    if (outer != nullptr || !IsSame(iid, IID_IImagingFactory)) {
      return E_NOINTERFACE;
    }
    *object = static_cast<IImagingFactory*>(new ImagingFactory);
    return S_OK;
  });
}

}  // extern "C"

}  // namespace handheld
