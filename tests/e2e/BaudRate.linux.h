#pragma once

namespace e2e {

/// Baud rate that a terminal is set to, whichever way it was set; -1 when `descriptor` is none.
int BaudRateOf(int descriptor);

}  // namespace e2e
