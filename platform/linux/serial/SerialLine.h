// Terminal settings of a serial line. Apart from the other sources because the kernel's interface
// for arbitrary baud rates cannot be included beside the C library's.
#pragma once

#include <cstdint>
#include <optional>

namespace handheld::SerialLine {

/// Passes bytes through as they come, 8N1, without flow control, regardless of modem lines. The
/// baud rate stays. True also for devices without terminal settings (a FIFO), which pass bytes
/// through anyway.
bool MakeRaw(int descriptor);

/// Baud rate; nothing when the device has none or is gone.
std::optional<std::uint32_t> GetBaud(int descriptor);
bool SetBaud(int descriptor, std::uint32_t baud);

/// Keeps other programs from opening the line, or lets them again.
void SetExclusive(int descriptor, bool exclusive);

/// Waits until everything written has left.
void Drain(int descriptor);

}  // namespace handheld::SerialLine
