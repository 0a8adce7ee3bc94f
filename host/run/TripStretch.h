// A trip that goes on after a jump of the receiver's clock.
#pragma once

#include "engine/EngineLibrary.h"

namespace host {

/// Makes the sensors forget the time of the last position, so that the next one adds nothing. Call
/// when the present position has no fix: this makes all others forget it.
void StartStretch(const EngineLibrary& engine);

}  // namespace host
