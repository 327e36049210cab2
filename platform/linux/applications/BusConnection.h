#pragma once

#include <memory>

#include "support/Time.h"

struct sd_bus;

namespace talmo {

struct CloseBusConnection {
  void operator()(sd_bus* bus) const;
};

/// A connection to the session bus (DBUS_SESSION_BUS_ADDRESS, or the bus of the person's runtime
/// folder), for one thread. It is closed without flushing: what could not be sent so far is not
/// wanted any more.
using BusConnection = std::unique_ptr<sd_bus, CloseBusConnection>;

/// Opens `connection` and waits until it is ready. 0, or the negative error number; -ETIMEDOUT for
/// a bus that did not answer until `deadline`.
int openBusConnection(BusConnection& connection, Uptime deadline);

/// Waits for something to do on the connection; false when the deadline has passed.
bool waitForBusConnection(sd_bus* bus, Uptime deadline);

}  // namespace talmo
