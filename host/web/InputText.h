// What a browser sends when somebody touches the picture.
#pragma once

#include <optional>
#include <string>

#include "window/RemoteInput.h"

namespace host {

/// Reads one JSON object, such as {"type":"down","x":10,"y":20}. Nothing when it is none, or lacks
/// something, or says what nobody can do.
std::optional<RemoteInput> ParseInput(const std::string& text);

}  // namespace host
