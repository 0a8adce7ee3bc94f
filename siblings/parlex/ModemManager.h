#pragma once

#include "parlex/Patience.h"
#include "parlex/Sms.h"

namespace parlex {

/// Sends one message through the modem of ModemManager with the highest state that can send
/// messages. Uses the system bus (or the one that DBUS_SYSTEM_BUS_ADDRESS names). Returns when the
/// modem has accepted the message or something has failed: after two minutes at most, and not later
/// than `patience` ends.
Result SendThroughModemManager(const Sms& sms, Patience& patience);

}  // namespace parlex
