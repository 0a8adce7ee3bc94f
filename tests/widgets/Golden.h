// Whole pictures compared with those that were looked at and kept.
#pragma once

#include <handheld.h>

#include <string>

namespace ferolin {

/// Fails the running test unless the picture equals golden/<name>.png pixel for pixel. What was
/// there instead, and where it differs (white on black), then lies in the build folder as
/// golden-failures/<name>.actual.png and .difference.png. With FEROLIN_KEEP_PICTURES in the
/// environment the picture is kept as the new golden one.
void ExpectGolden(const std::string& name, const handheld::Pixels& picture);

/// The picture kept under that name; without one the running test fails and it has no pixels.
handheld::Pixels LoadGolden(const std::string& name);

}  // namespace ferolin
