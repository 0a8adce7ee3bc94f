// A picture file, loaded and drawn.
#include <objbase.h>
#include <windows.h>
#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "TryInput.h"
#include "render/Picture.h"
#include "support/TempFolder.h"

namespace {

constexpr std::size_t SIGNATURE = 8;
/// Length, type and checksum of a chunk.
constexpr std::size_t FRAME = 12;

std::uint32_t ReadNumber(const std::string& bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  }
  return number;
}

/// Makes the checksums of all chunks right: a change would otherwise end at the first one.
void Seal(std::string& png) {
  for (std::size_t at = SIGNATURE; at + FRAME <= png.size();) {
    const std::size_t length = std::min<std::size_t>(ReadNumber(png, at), png.size() - at - FRAME);
    const std::size_t end = at + 8 + length;
    const auto* covered = reinterpret_cast<const Bytef*>(png.data() + at + 4);
    const uLong checksum = crc32(0, covered, static_cast<uInt>(length + 4));
    for (std::size_t i = 0; i < 4; ++i) {
      png[end + i] = static_cast<char>(checksum >> (24 - 8 * i));
    }
    at = end + 4;
  }
}

}  // namespace

void TryInput(const unsigned char* data, std::size_t size) {
  static const testing_support::TempFolder folder;
  static const HRESULT com = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  static_cast<void>(com);
  std::string png(reinterpret_cast<const char*>(data), size);
  Seal(png);
  folder.Write("picture.png", png);
  ferolin::Picture picture;
  if (picture.Load(folder.DevicePath("picture.png"))) {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 100, 80);
    const HGDIOBJ previous = SelectObject(dc, bitmap);
    picture.Draw(dc, {0, 0, 100, 80});
    picture.DrawBlended(dc, {-10, -10, 50, 60}, 128);
    SelectObject(dc, previous);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
  }
}
