// Names that can stand in a topic of MQTT.
#pragma once

#include <string_view>

namespace host {

/// Whether a name has 1 to 64 letters, digits, "_" and "-", and nothing else.
bool IsTopicName(std::string_view name);

}  // namespace host
