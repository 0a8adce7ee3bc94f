// The user's speed limits.
#pragma once

#include "commandline/Options.h"
#include "engine/EngineLibrary.h"

namespace host {

/// Gives the engine the limits and the sound at a stop that the user asks for. Limits replace all
/// earlier ones; without any the engine's kept ones stay.
void ApplySpeedLimits(const EngineLibrary::Functions& engine, const Options& options);

}  // namespace host
