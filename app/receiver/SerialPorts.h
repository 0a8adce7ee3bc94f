// The serial ports of the device.
#pragma once

#include <vector>

#include "base/WideString.h"

namespace app {

using ferolin::WideString;

/// Whether there is a port with that name, such as "COM1". One that is in use counts.
bool IsSerialPort(const WideString& name);

/// Numbers of the COM ports that exist, in order. Where the system does not list them, COM0 to COM31
/// are tried.
std::vector<int> FindSerialPorts();

}  // namespace app
