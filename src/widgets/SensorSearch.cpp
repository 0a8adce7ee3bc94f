#include "widgets/SensorSearch.h"

#include <cstring>

#include "sensors/Sensor.h"

namespace ferolin {

bool IsNamed(const Sensor& sensor, Word word) {
  return std::strstr(sensor.GetName(), GetText(word)) != nullptr;
}

}  // namespace ferolin
