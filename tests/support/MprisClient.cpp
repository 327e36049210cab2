#include "tests/support/MprisClient.h"

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

#include <systemd/sd-bus.h>

namespace talmo::test {
namespace {

constexpr const char* path = "/org/mpris/MediaPlayer2";
constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";
constexpr std::uint64_t timeoutMicroseconds = 2'000'000;

struct Release {
  void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, Release>;

void check(int result, const char* what) {
  if (result < 0) throw std::system_error(-result, std::generic_category(), what);
}

/// The reply to a call, or nothing.
template <typename... Arguments>
Message ask(sd_bus* bus, const std::string& name, const char* interface, const char* method,
            const char* types, Arguments... arguments) {
  sd_bus_message* call = nullptr;
  if (sd_bus_message_new_method_call(bus, &call, name.c_str(), path, interface, method) < 0) {
    return nullptr;
  }
  const Message request(call);
  if (sd_bus_message_append(call, types, arguments...) < 0) return nullptr;
  sd_bus_message* reply = nullptr;
  if (sd_bus_call(bus, call, timeoutMicroseconds, nullptr, &reply) < 0) return nullptr;
  return Message(reply);
}

Message property(sd_bus* bus, const std::string& name, const char* property) {
  return ask(bus, name, "org.freedesktop.DBus.Properties", "Get", "ss", playerInterface, property);
}

/// The text that a variant holds, or the first one of its list; empty when it holds none.
std::string firstText(sd_bus_message* message) {
  const char* type = nullptr;
  if (sd_bus_message_peek_type(message, nullptr, &type) <= 0 ||
      sd_bus_message_enter_container(message, 'v', type) <= 0) {
    return {};
  }
  if (std::string_view(type) == "as") sd_bus_message_enter_container(message, 'a', "s");
  const char* text = nullptr;
  if (sd_bus_message_read(message, "s", &text) <= 0) return {};
  return text;
}

}  // namespace

void MprisClient::CloseBus::operator()(sd_bus* bus) const {
  sd_bus_close(bus);
  sd_bus_unref(bus);
}

MprisClient::MprisClient(const std::string& busAddress, std::string player)
    : name_("org.mpris.MediaPlayer2." + std::move(player)) {
  sd_bus* bus = nullptr;
  check(sd_bus_new(&bus), "sd_bus_new");
  bus_.reset(bus);
  check(sd_bus_set_address(bus, busAddress.c_str()), "sd_bus_set_address");
  check(sd_bus_set_bus_client(bus, 1), "sd_bus_set_bus_client");
  check(sd_bus_start(bus), "sd_bus_start");
}

MprisClient::~MprisClient() = default;

std::string MprisClient::playbackStatus() {
  const Message reply = property(bus_.get(), name_, "PlaybackStatus");
  const char* status = nullptr;
  if (!reply || sd_bus_message_read(reply.get(), "v", "s", &status) <= 0) return {};
  return status;
}

std::string MprisClient::track() {
  const std::string url = metadata("xesam:url");
  return url.substr(url.rfind('/') + 1);
}

std::string MprisClient::metadata(const std::string& key) {
  const Message reply = property(bus_.get(), name_, "Metadata");
  if (!reply || sd_bus_message_enter_container(reply.get(), 'v', "a{sv}") <= 0 ||
      sd_bus_message_enter_container(reply.get(), 'a', "{sv}") <= 0) {
    return {};
  }
  while (sd_bus_message_enter_container(reply.get(), 'e', "sv") > 0) {
    const char* name = nullptr;
    if (sd_bus_message_read(reply.get(), "s", &name) <= 0) return {};
    if (name == key) return firstText(reply.get());
    if (sd_bus_message_skip(reply.get(), "v") < 0) return {};
    sd_bus_message_exit_container(reply.get());
  }
  return {};
}

bool MprisClient::call(const char* method) {
  return ask(bus_.get(), name_, playerInterface, method, "") != nullptr;
}

}  // namespace talmo::test
