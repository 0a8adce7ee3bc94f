// Copying, scaling and blending of pixels.
#pragma once

#include <windows.h>

#include "gdi/Raster.h"

namespace handheld::gdi {

/// A rectangle with a direction: a negative width runs from x to the left and includes x; heights
/// likewise.
struct Box {
  int x;
  int y;
  int width;
  int height;
};

enum class CopyMode { PLAIN, INVERTED };

/// Copies `from` of the source into `to`, scaled without smoothing and mirrored where the
/// directions differ. Several source pixels of one target pixel are combined by AND. Source pixels
/// that do not exist leave the target as it is. The source may be the target itself.
void StretchPixels(const Target& target, const Box& to, const Raster& source, const Box& from,
                   CopyMode mode);

/// Blends `from`, which must lie inside the source, over `to`; extents are above 0. Of several
/// source pixels of one target pixel one is taken. `usesAlpha`: the source's colours are
/// premultiplied by its high byte.
void BlendPixels(const Target& target, const Box& to, const Raster& source, const Box& from,
                 std::uint32_t constantAlpha, bool usesAlpha);

}  // namespace handheld::gdi
