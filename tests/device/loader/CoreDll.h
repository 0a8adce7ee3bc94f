// The device's own libraries, as the loaded library sees them.
#pragma once

#include <string>

/// Address to be called for a function of one of the device's libraries; null when that library has
/// none of that name. Most are the Linux home's; those whose arguments the device passes in another
/// way are adapted. What the environment variable FEROLIN_DEVICE_LACKS names is not found.
void* FindDeviceFunction(const std::string& library, const std::string& name);
