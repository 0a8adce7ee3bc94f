#pragma once

#include "sensors/Sensor.h"

namespace ferolin {

/// A sensor whose state the host keeps between runs.
class SaveableSensor : public Sensor {
 public:
  using Sensor::Sensor;

  int IsSaveable() const override { return 1; }

 protected:
  template <class... Values>
  static void PrintState(char* out, int size, std::string_view format, const Values&... values) {
    if (size > 0) {
      FormatInto(out, static_cast<std::size_t>(size), format, values...);
    }
  }
};

}  // namespace ferolin
