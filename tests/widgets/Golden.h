// Whole pictures compared with reference pictures that were looked at.
#pragma once

#include <handheld.h>

#include <string>

namespace ferolin {

/// Fails the running test unless the picture equals golden/<name>.png pixel for pixel. A failure
/// leaves golden-failures/<name>.actual.png and .difference.png (white on black) in the build
/// folder. With FEROLIN_KEEP_PICTURES in the environment the picture becomes the new reference
/// instead.
void ExpectGolden(const std::string& name, const handheld::Pixels& picture);

/// The reference picture of that name. Without one the running test fails; no pixels are returned.
handheld::Pixels LoadGolden(const std::string& name);

}  // namespace ferolin
