// Where the read-outs are shown.
#pragma once

#include "engine/Readout.h"

namespace host {

class Output {
 public:
  virtual ~Output() = default;

  /// Shows an update, or the same one again with another notice; may skip updates that come very
  /// fast.
  virtual void Show(const Update& update) = 0;

  /// Draws again after the terminal has changed its size.
  virtual void Redraw() {}

  /// Shows how the run ended. `last` is the last update (number 0 when there was none), `registry`
  /// holds names and states of the saveable sensors.
  virtual void Finish(const Update& last, const Readouts& registry) = 0;
};

}  // namespace host
