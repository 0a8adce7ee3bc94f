#include "gdi/WindowSurfaces.h"

#include <algorithm>
#include <atomic>

#include "core/LargePages.h"
#include "handheld.h"
#include "windows/DeviceScreen.h"
#include "windows/WindowTable.h"

namespace handheld::gdi {

namespace {

constexpr std::uint64_t FIRST_OF_NEXT_SURFACE = std::uint64_t{1} << 32;

/// No version is used twice, not even by the next surface of a resized window.
std::uint64_t NextVersion() {
  static std::atomic<std::uint64_t> last = 0;
  return last.fetch_add(FIRST_OF_NEXT_SURFACE);
}

void CopyCorner(const Raster& from, const Raster& to) {
  const int width = std::min(from.width, to.width);
  const int height = std::min(from.height, to.height);
  for (int y = 0; y < height; ++y) {
    std::copy_n(from.GetRow<const std::uint32_t>(y), width, to.GetRow<std::uint32_t>(y));
  }
}

}  // namespace

WindowSurface::WindowSurface(int width, int height) : version(NextVersion()) {
  pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  PreferLargePages(pixels.data(), pixels.capacity() * sizeof(pixels.front()));
  pixels.resize(pixels.capacity());
  raster.top = reinterpret_cast<std::uint8_t*>(pixels.data());
  raster.pitch = static_cast<std::ptrdiff_t>(width) * 4;
  raster.width = width;
  raster.height = height;
  raster.format = PixelFormat::ARGB8888;
}

bool WindowSurface::WasDrawnInto() const {
  return version % FIRST_OF_NEXT_SURFACE != 0;
}

WindowSurfaces& WindowSurfaces::Instance() {
  static WindowSurfaces& surfaces = *new WindowSurfaces;
  return surfaces;
}

std::shared_ptr<WindowSurface> WindowSurfaces::GetSurface(HWND window) {
  RECT rect = {};
  if (window == nullptr) {
    const Screen screen = CurrentScreen();
    rect = {0, 0, screen.width, screen.height};
  } else {
    const std::optional<Window> found = WindowTable::Instance().Find(window);
    if (!found) {
      return nullptr;
    }
    rect = found->rect;
  }
  const int width = std::max<int>(rect.right - rect.left, 0);
  const int height = std::max<int>(rect.bottom - rect.top, 0);

  const std::lock_guard lock(mutex);
  std::shared_ptr<WindowSurface>& entry = surfaces[window];
  if (entry != nullptr && entry->raster.width == width && entry->raster.height == height) {
    return entry;
  }
  auto fresh = std::make_shared<WindowSurface>(width, height);
  if (entry != nullptr) {
    const std::lock_guard pixelLock(entry->mutex);
    CopyCorner(entry->raster, fresh->raster);
    fresh->version += entry->WasDrawnInto();
  }
  entry = fresh;
  ForgetClosedWindows();
  return fresh;
}

std::shared_ptr<WindowSurface> WindowSurfaces::FindDrawn(HWND window) const {
  const std::lock_guard lock(mutex);
  const auto found = surfaces.find(window);
  return found == surfaces.end() ? nullptr : found->second;
}

void WindowSurfaces::ForgetClosedWindows() {
  std::erase_if(surfaces, [](const auto& entry) {
    return entry.first != nullptr && !WindowTable::Instance().Find(entry.first);
  });
}

}  // namespace handheld::gdi

namespace handheld {

Pixels WindowPixels(HWND window) {
  const std::shared_ptr<gdi::WindowSurface> drawn =
      gdi::WindowSurfaces::Instance().FindDrawn(window);
  if (drawn == nullptr) {
    return {};
  }
  const std::lock_guard lock(drawn->mutex);
  if (!drawn->WasDrawnInto()) {
    return {};
  }
  Pixels pixels = {drawn->raster.width, drawn->raster.height, drawn->pixels};
  for (std::uint32_t& pixel : pixels.rows) {
    pixel &= 0x00FFFFFF;
  }
  return pixels;
}

std::uint64_t WindowPixelsVersion(HWND window) {
  const std::shared_ptr<gdi::WindowSurface> drawn =
      gdi::WindowSurfaces::Instance().FindDrawn(window);
  if (drawn == nullptr) {
    return 0;
  }
  const std::lock_guard lock(drawn->mutex);
  return drawn->WasDrawnInto() ? drawn->version : 0;
}

}  // namespace handheld
