#include "platform/linux/applications/BusConnection.h"

#include <cerrno>
#include <chrono>
#include <cstdint>

#include <systemd/sd-bus.h>

namespace talmo {

void CloseBusConnection::operator()(sd_bus* bus) const {
  sd_bus_close_unref(bus);
}

int openBusConnection(BusConnection& connection, Uptime deadline) {
  connection.reset();
  sd_bus* bus = nullptr;
  const int opened = sd_bus_open_user(&bus);
  if (opened < 0) return opened;
  BusConnection made(bus);
  while (sd_bus_is_ready(bus) == 0) {
    const int result = sd_bus_process(bus, nullptr);
    if (result > 0) continue;
    if (result < 0) return result;
    if (!waitForBusConnection(bus, deadline)) return -ETIMEDOUT;
  }
  if (sd_bus_is_open(bus) <= 0) return -ENOTCONN;
  connection = std::move(made);
  return 0;
}

bool waitForBusConnection(sd_bus* bus, Uptime deadline) {
  const auto left = deadline - std::chrono::steady_clock::now();
  if (left <= Duration::zero()) return false;
  const auto microseconds = std::chrono::ceil<std::chrono::microseconds>(left).count();
  sd_bus_wait(bus, static_cast<std::uint64_t>(microseconds));
  return true;
}

}  // namespace talmo
