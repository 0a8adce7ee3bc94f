// The machine's own batteries.
#pragma once

#include <windows.h>

#include <string>

namespace handheld {

/// State of the power supplies under a folder such as /sys/class/power_supply. Without a battery
/// the flag is "no battery" (128) and the percentage unknown (255); several batteries count as one,
/// by their mean. Batteries of attached devices, such as a mouse's, do not count.
SYSTEM_POWER_STATUS_EX ReadPowerSupplies(const std::string& folder);

}  // namespace handheld
