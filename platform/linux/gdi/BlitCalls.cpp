// Calls that copy, scale and blend pictures.
#include "core/LastError.h"
#include "gdi/Blits.h"
#include "gdi/DeviceContext.h"
#include "gdi/TwinBlits.h"

namespace handheld::gdi {

namespace {

constexpr std::uint8_t UNWEAKENED = 255;

BOOL Blit(HDC dc, const Box& to, HDC source, const Box& from, DWORD operation) {
  return Guarded<BOOL>(FALSE, [&]() -> BOOL {
    const UsedPair contexts(dc, source);
    if (!contexts || (operation != SRCCOPY && operation != NOTSRCCOPY)) {
      return FALSE;
    }
    const DeviceContext& target = contexts.GetTarget();
    const CopyMode mode = operation == SRCCOPY ? CopyMode::PLAIN : CopyMode::INVERTED;
    if (ShowTwin(target, to, contexts.GetSource(), from, mode) ||
        (mode == CopyMode::PLAIN &&
         DrawLargePicture(target, to, contexts.GetSource(), from, UNWEAKENED, false))) {
      return TRUE;
    }
    StretchPixels(target.GetDrawingTarget(), to, contexts.GetSource().GetRaster(), from, mode);
    BlitIntoTwin(target, to, contexts.GetSource(), from, mode);
    return TRUE;
  });
}

bool Contains(const Raster& raster, const Box& box) {
  return box.x >= 0 && box.y >= 0 && box.width >= 0 && box.height >= 0 &&
         box.width <= raster.width - box.x && box.height <= raster.height - box.y;
}

bool Overlap(const Box& a, const Box& b) {
  return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

BOOL Blend(HDC dc, const Box& to, HDC source, const Box& from, BLENDFUNCTION blend) {
  return Guarded<BOOL>(FALSE, [&]() -> BOOL {
    const UsedPair contexts(dc, source);
    if (!contexts || to.width < 0 || to.height < 0) {
      return FALSE;
    }
    const Raster& pixels = contexts.GetSource().GetRaster();
    if (!Contains(pixels, from)) {
      return FALSE;
    }
    const bool usesAlpha = (blend.AlphaFormat & AC_SRC_ALPHA) != 0;
    // Only 32-bit pictures have an alpha channel.
    if (usesAlpha && pixels.format != PixelFormat::ARGB8888) {
      return FALSE;
    }
    if (contexts.GetTarget().GetRaster().top == pixels.top && Overlap(to, from)) {
      return FALSE;
    }
    if (DrawLargePicture(contexts.GetTarget(), to, contexts.GetSource(), from,
                         blend.SourceConstantAlpha, usesAlpha)) {
      return TRUE;
    }
    BlendPixels(contexts.GetTarget().GetDrawingTarget(), to, pixels, from,
                blend.SourceConstantAlpha, usesAlpha);
    BlendIntoTwin(contexts.GetTarget(), to, contexts.GetSource(), from, blend);
    return TRUE;
  });
}

}  // namespace

extern "C" {

BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                   int sourceY, DWORD operation) {
  return Blit(dc, {x, y, width, height}, source, {sourceX, sourceY, width, height}, operation);
}

BOOL WINAPI StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, DWORD operation) {
  return Blit(dc, {x, y, width, height}, source, {sourceX, sourceY, sourceWidth, sourceHeight},
              operation);
}

BOOL WINAPI AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                       int sourceY, int sourceWidth, int sourceHeight, BLENDFUNCTION blend) {
  return Blend(dc, {x, y, width, height}, source, {sourceX, sourceY, sourceWidth, sourceHeight},
               blend);
}

}  // extern "C"

}  // namespace handheld::gdi
