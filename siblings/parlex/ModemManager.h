#pragma once

#include "parlex/Patience.h"
#include "parlex/Sms.h"

namespace parlex {

/// Sends one message through the modem that ModemManager knows to be the most ready of those that
/// can send messages. Talks to the system bus (or to the one that DBUS_SYSTEM_BUS_ADDRESS names)
/// and returns when the modem has taken the message or something has failed: after two minutes at
/// most, and not later than `patience` ends.
Result SendThroughModemManager(const Sms& sms, Patience& patience);

}  // namespace parlex
