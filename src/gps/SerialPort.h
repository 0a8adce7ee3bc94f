// Opening the serial port of the receiver.
#pragma once

#include <windows.h>

#include <string_view>

namespace ferolin {

/// Opens a port named without its colon ("COM1") for exclusive reading and writing.
/// INVALID_HANDLE_VALUE on failure. The caller closes the handle.
HANDLE OpenSerialPort(std::string_view portName);

/// Sets the port's baud rate if it is one that receivers use; any other rate leaves the port as it
/// is. False only when the port's settings could not be read. Nothing but the rate is touched.
bool ApplyBaudRate(HANDLE port, int baudRate);

}  // namespace ferolin
