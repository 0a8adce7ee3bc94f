// What stands in the title of the window.
#pragma once

#include <string>

#include "engine/Readout.h"

namespace host {

/// "Speed - Ferolin, /dev/ttyUSB0"; in the view's place what is wrong, if anything is.
std::string WindowTitle(const Update& update, const std::string& viewName,
                        const std::string& sourceName);

}  // namespace host
