// What the receiver of the simulated drive sends.
#pragma once

#include <chrono>
#include <string>

#include "sources/DemoState.h"

namespace host {

/// One GGA, one GSA, three GSV and at the end one RMC, each with CR LF. `moment` is UTC.
std::string WriteDemoSentences(std::chrono::sys_seconds moment, const DemoState& state);

}  // namespace host
