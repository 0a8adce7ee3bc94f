// The device's own libraries, as the loaded library sees them.
#pragma once

#include <string>

/// Address to be called for a function of the device; null when there is none of that name. Most
/// are the Linux home's; those whose arguments the device passes in another way are adapted.
void* FindDeviceFunction(const std::string& name);
