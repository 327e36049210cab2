#include "platform/linux/applications/MprisNames.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include <systemd/sd-bus.h>

#include "platform/linux/applications/BusCall.h"
#include "platform/linux/applications/BusReply.h"
#include "platform/linux/applications/SessionBus.h"

namespace talmo {
namespace {

constexpr std::string_view prefix = "org.mpris.MediaPlayer2.";
constexpr std::string_view instance = ".instance";

BusCall askBus(std::string member, std::vector<std::string> arguments) {
  return {.destination = "org.freedesktop.DBus",
          .path = "/org/freedesktop/DBus",
          .interface = "org.freedesktop.DBus",
          .member = std::move(member),
          .arguments = std::move(arguments)};
}

/// The names in a reply to ListNames.
std::vector<std::string> readNames(sd_bus_message* message) {
  std::vector<std::string> names;
  if (sd_bus_message_enter_container(message, 'a', "s") <= 0) return names;
  const char* name = nullptr;
  while (sd_bus_message_read(message, "s", &name) > 0) names.emplace_back(name);
  return names;
}

bool belongsTo(std::string_view name, std::string_view playerName) {
  if (!name.starts_with(prefix)) return false;
  name.remove_prefix(prefix.size());
  if (!name.starts_with(playerName)) return false;
  name.remove_prefix(playerName.size());
  return name.empty() || name.starts_with(instance);
}

}  // namespace

std::optional<std::vector<std::string>> mprisNames(const LinuxApplication& application,
                                                   Uptime deadline) {
  const BusReply reply = SessionBus::ofThisThread().call(askBus("ListNames", {}), deadline);
  if (!reply.message) return std::nullopt;
  std::vector<std::string> everyName = readNames(reply.message.get());
  // The bus lists its names in no particular order.
  std::ranges::sort(everyName);
  std::vector<std::string> names;
  for (const std::string_view playerName : application.playerNames) {
    for (const std::string& name : everyName) {
      if (belongsTo(name, playerName)) names.push_back(name);
    }
  }
  return names;
}

std::vector<ProcessIdentifier> mprisProcesses(const std::vector<std::string>& names,
                                              Uptime deadline) {
  std::vector<BusCall> calls;
  calls.reserve(names.size());
  for (const std::string& name : names) {
    calls.push_back(askBus("GetConnectionUnixProcessID", {name}));
  }
  std::vector<ProcessIdentifier> processes;
  for (const BusReply& reply : SessionBus::ofThisThread().callAll(calls, deadline)) {
    std::uint32_t process = 0;
    if (!reply.message || sd_bus_message_read_basic(reply.message.get(), 'u', &process) <= 0) {
      continue;
    }
    const auto identifier = static_cast<ProcessIdentifier>(process);
    if (std::ranges::find(processes, identifier) == processes.end()) {
      processes.push_back(identifier);
    }
  }
  return processes;
}

}  // namespace talmo
