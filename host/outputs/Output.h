// Where the read-outs go.
#pragma once

#include "engine/Readout.h"

namespace host {

class Output {
 public:
  virtual ~Output() = default;

  /// Shows an update. What is shown may lag behind when updates come very fast.
  virtual void Show(const Update& update) = 0;

  /// Draws anew what is shown, after the terminal has changed its size.
  virtual void Redraw() {}

  /// The run is over: shows how it ended. `last` is the last update (number 0 when there was none),
  /// `registry` holds names and states of the saveable sensors.
  virtual void Finish(const Update& last, const Readouts& registry) = 0;

  /// Whether the screen is taken, so that messages have to wait until after Finish.
  virtual bool IsFullScreen() const { return false; }
};

}  // namespace host
