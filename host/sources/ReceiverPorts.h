// Where a receiver may be plugged in.
#pragma once

#include <string>
#include <vector>

namespace host {

/// Paths of the serial ports at which receivers appear: USB, the serial port of a board, Bluetooth.
/// A USB device goes by its name in serial/by-id, which stays the same wherever it is plugged in.
/// `folder` is that of the devices, "/dev".
std::vector<std::string> FindReceiverPorts(const std::string& folder);

}  // namespace host
