// Colours of the views under one name.
#pragma once

#include <string>

namespace host {

/// Settings of the theme of that name, as in a settings file. Throws HostError when its file cannot
/// be read.
std::string ReadTheme(const std::string& name);

}  // namespace host
