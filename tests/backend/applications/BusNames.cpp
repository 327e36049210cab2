#include "tests/backend/applications/BusNames.h"

#include <chrono>
#include <cstdint>
#include <stdexcept>

#include <systemd/sd-bus.h>

#include "platform/linux/applications/SessionBus.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

BusReply askBus(const std::string& member, const std::string& busName) {
  return SessionBus::ofThisThread().call(
      {.destination = "org.freedesktop.DBus",
       .path = "/org/freedesktop/DBus",
       .interface = "org.freedesktop.DBus",
       .member = member,
       .arguments = {busName}},
      std::chrono::steady_clock::now() + std::chrono::seconds(10));
}

}  // namespace

bool hasOwner(const std::string& busName) {
  const BusReply reply = askBus("NameHasOwner", busName);
  int owned = 0;
  if (!reply.message || sd_bus_message_read_basic(reply.message.get(), 'b', &owned) <= 0) {
    throw std::runtime_error("the bus does not say who is there: " + reply.error);
  }
  return owned != 0;
}

ProcessIdentifier ownerOf(const std::string& busName) {
  const BusReply reply = askBus("GetConnectionUnixProcessID", busName);
  std::uint32_t process = 0;
  if (reply.message) sd_bus_message_read_basic(reply.message.get(), 'u', &process);
  return static_cast<ProcessIdentifier>(process);
}

std::uint32_t startService(const std::string& busName) {
  // A call with an argument that is no string, which the backend never makes.
  sd_bus* bus = nullptr;
  if (sd_bus_open_user(&bus) < 0) throw std::runtime_error("no session bus");
  sd_bus_message* reply = nullptr;
  std::uint32_t answer = 0;
  if (sd_bus_call_method(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                         "org.freedesktop.DBus", "StartServiceByName", nullptr, &reply, "su",
                         busName.c_str(), 0U) >= 0) {
    sd_bus_message_read_basic(reply, 'u', &answer);
  }
  sd_bus_message_unref(reply);
  sd_bus_close_unref(bus);
  return answer;
}

void waitUntilGone(const std::string& playerName) {
  const std::string busName = "org.mpris.MediaPlayer2." + playerName;
  if (!waitUntil([&] { return !hasOwner(busName); })) {
    throw std::runtime_error(playerName + " is still on the bus");
  }
}

}  // namespace talmo::test
