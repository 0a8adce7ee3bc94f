// Pictures as PNG files.
#pragma once

#include <string>

#include "handheld.h"

namespace host {

/// Overwrites the file. Throws HostError when it cannot be written or there are no pixels.
void WritePng(const std::string& path, const handheld::Pixels& pixels);

}  // namespace host
