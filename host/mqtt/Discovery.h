// Makes a box known to Home Assistant.
#pragma once

#include <string>
#include <vector>

#include "mqtt/Broker.h"

namespace host {

/// Retained messages that describe the box's position, speed and distance, for the topics of this
/// name.
std::vector<MqttMessage> MakeDiscovery(const std::string& id);

}  // namespace host
