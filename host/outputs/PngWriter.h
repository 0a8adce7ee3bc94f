// Pictures as PNG files.
#pragma once

#include <string>

#include "handheld.h"

namespace host {

/// Throws HostError when no file can be written there; writes nothing.
void CheckPngPath(const std::string& path);

/// Overwrites the file. Throws HostError when there are no pixels or the file cannot be written.
void WritePng(const std::string& path, const handheld::Pixels& pixels);

}  // namespace host
