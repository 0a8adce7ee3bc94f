// Imaging library of the device: decodes picture files. Interfaces are declared up to the last
// method that is called; the slots before it keep the order in which the device's own objects have
// them.
#pragma once

#include <objbase.h>

using PixelFormatID = int;
/// Bytes B, G, R, A; colours not multiplied by alpha.
constexpr PixelFormatID PixelFormat32bppARGB = 0x0026200A;

enum InterpolationHint { InterpolationHintDefault = 0 };

/// Flags of IBitmapImage::LockBits; both together decode into the caller's own memory.
enum ImageLockMode { ImageLockModeRead = 1, ImageLockModeUserInputBuf = 4 };

struct ImageInfo {
  GUID RawDataFormat;
  PixelFormatID PixelFormat;
  UINT Width;
  UINT Height;
  UINT TileWidth;
  UINT TileHeight;
  double Xdpi;
  double Ydpi;
  UINT Flags;
};

struct BitmapData {
  UINT Width;
  UINT Height;
  /// Bytes from one row to the next.
  INT Stride;
  PixelFormatID PixelFormat;
  LPVOID Scan0;
  UINT_PTR Reserved;  // Unused.
};

struct IImage : IUnknown {
  virtual HRESULT WINAPI GetPhysicalDimension(SIZE* size) = 0;
  virtual HRESULT WINAPI GetImageInfo(ImageInfo* info) = 0;
};

struct IBitmapImage : IUnknown {
  virtual HRESULT WINAPI GetSize(SIZE* size) = 0;
  virtual HRESULT WINAPI GetPixelFormatID(PixelFormatID* format) = 0;
  virtual HRESULT WINAPI LockBits(const RECT* rect, UINT flags, PixelFormatID format,
                                  BitmapData* data) = 0;
  virtual HRESULT WINAPI UnlockBits(const BitmapData* data) = 0;
};

struct IStream;

struct IImagingFactory : IUnknown {
  virtual HRESULT WINAPI CreateImageFromStream(IStream* stream, IImage** image) = 0;
  virtual HRESULT WINAPI CreateImageFromFile(LPCWSTR fileName, IImage** image) = 0;
  virtual HRESULT WINAPI CreateImageFromBuffer(LPCVOID buffer, UINT size, int disposal,
                                               IImage** image) = 0;
  virtual HRESULT WINAPI CreateNewBitmap(UINT width, UINT height, PixelFormatID format,
                                         IBitmapImage** bitmap) = 0;
  /// Width and height 0 keep the image's own.
  virtual HRESULT WINAPI CreateBitmapFromImage(IImage* image, UINT width, UINT height,
                                               PixelFormatID format, InterpolationHint hint,
                                               IBitmapImage** bitmap) = 0;
};

inline constexpr CLSID CLSID_ImagingFactory = {
    0x327ABDA8, 0x072B, 0x11D3, {0x9D, 0x7B, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
inline constexpr IID IID_IImagingFactory = {
    0x327ABDA7, 0x072B, 0x11D3, {0x9D, 0x7B, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
