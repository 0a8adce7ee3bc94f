#include "sensors/Sensor.h"

namespace ferolin {

void Sensor::GetRegistryString(char*, int) const {}

int Sensor::SetRegistryString(const char*) {
  return 0;
}

}  // namespace ferolin
