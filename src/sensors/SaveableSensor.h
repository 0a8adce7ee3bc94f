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
  static void PrintState(char* out, std::string_view format, const Values&... values) {
    FormatInto(out, TEXT_SIZE, format, values...);
  }
};

}  // namespace ferolin
