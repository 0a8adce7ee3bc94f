// Copying, scaling and blending with finely drawn twins.
#pragma once

#include "gdi/Blits.h"
#include "gdi/DeviceContext.h"

namespace handheld::gdi {

/// Draws the source, or its twin, into the target's twin, if there is one.
void BlitIntoTwin(const DeviceContext& target, const Box& to, const DeviceContext& source,
                  const Box& from, CopyMode mode);
void BlendIntoTwin(const DeviceContext& target, const Box& to, const DeviceContext& source,
                   const Box& from, const BLENDFUNCTION& blend);

/// Copies the whole of a source's twin, pixel by pixel, into a target in pixels of the screen. The
/// source may be a copy of a bitmap with a twin, turned clockwise by the program and selected in its
/// place. False, and nothing drawn, when there is no twin or it does not fit `to`.
bool ShowTwin(const DeviceContext& target, const Box& to, const DeviceContext& source,
              const Box& from, CopyMode mode);

/// Blends or copies the larger version of a picture into a target in pixels of the screen, where
/// drawing is fine. False, and nothing drawn, when there is none.
bool DrawLargePicture(const DeviceContext& target, const Box& to, const DeviceContext& source,
                      const Box& from, std::uint8_t alpha, bool usesAlpha);

}  // namespace handheld::gdi
