#pragma once

#include "sensors/LocalizedText.h"

namespace ferolin {

class Sensor;

constexpr int NO_SENSOR = -1;

/// Whether the sensor's name contains the word in the user's language. Case-sensitive.
bool IsNamed(const Sensor& sensor, Word word);

}  // namespace ferolin
