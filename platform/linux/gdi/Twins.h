// The finely drawn twins of bitmaps.
#pragma once

#include "fine/Twin.h"
#include "gdi/DeviceContext.h"

namespace handheld::gdi {

/// Twin of the bitmap that the context draws into, made when there is none, with the context's clip.
/// Null for windows and for bitmaps that are not drawn finely.
fine::Twin* TwinOf(const DeviceContext& context);

/// A copy of the pixels; 32-bit pixels keep their alpha.
fine::SurfacePointer CopyPixels(const Raster& raster);

}  // namespace handheld::gdi
