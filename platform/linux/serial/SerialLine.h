// Terminal settings of a serial line. In a source of its own because the kernel's interface for
// arbitrary baud rates cannot be included beside the C library's.
#pragma once

#include <cstdint>
#include <optional>

namespace handheld::SerialLine {

/// Sets raw mode, 8N1, without flow control and modem lines. Keeps the baud rate. True also for
/// devices without terminal settings (a FIFO).
bool MakeRaw(int descriptor);

/// Baud rate; no value when the device has none or is gone.
std::optional<std::uint32_t> GetBaud(int descriptor);
bool SetBaud(int descriptor, std::uint32_t baud);

/// Forbids (true) or allows (false) other programs to open the line.
void SetExclusive(int descriptor, bool exclusive);

/// Waits until all written bytes are sent.
void Drain(int descriptor);

}  // namespace handheld::SerialLine
