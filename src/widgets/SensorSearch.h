#pragma once

#include "sensors/LocalizedText.h"

namespace ferolin {

class Sensor;

constexpr int NO_SENSOR = -1;

/// Whether the sensor's name holds the word in the user's language; upper and lower case differ.
bool IsNamed(const Sensor& sensor, Word word);

}  // namespace ferolin
