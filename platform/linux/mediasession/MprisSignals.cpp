#include "platform/linux/mediasession/MprisSignals.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <poll.h>

#include <systemd/sd-bus.h>

namespace talmo {
namespace {

constexpr std::array<const char*, 3> matches{
    "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
    "member='NameOwnerChanged',arg0namespace='org.mpris.MediaPlayer2'",
    "type='signal',path='/org/mpris/MediaPlayer2',"
    "interface='org.freedesktop.DBus.Properties',member='PropertiesChanged'",
    "type='signal',path='/org/mpris/MediaPlayer2',"
    "interface='org.mpris.MediaPlayer2.Player',member='Seeked'",
};

// A fraction of a millisecond's worth.
constexpr int mostAtOnce = 64;

int ignore(sd_bus_message*, void*, sd_bus_error*) {
  return 0;
}

}  // namespace

bool MprisSignals::open(Uptime deadline) {
  if (openBusConnection(bus_, deadline) < 0) return false;
  for (const char* match : matches) {
    const auto left = deadline - std::chrono::steady_clock::now();
    const auto microseconds = std::chrono::ceil<std::chrono::microseconds>(left).count();
    // Limits the call that adding a match makes; 0 would stand for the usual time-out.
    const bool isLate = microseconds <= 0;
    if (isLate ||
        sd_bus_set_method_call_timeout(bus_.get(), static_cast<std::uint64_t>(microseconds)) < 0 ||
        sd_bus_add_match(bus_.get(), nullptr, match, ignore, nullptr) < 0) {
      bus_.reset();
      return false;
    }
  }
  return true;
}

pollfd MprisSignals::descriptor() const {
  if (!bus_) return {.fd = -1, .events = 0, .revents = 0};
  const int events = sd_bus_get_events(bus_.get());
  return {.fd = sd_bus_get_fd(bus_.get()),
          .events = static_cast<short>(events < 0 ? POLLIN : events),
          .revents = 0};
}

MprisSignals::Drained MprisSignals::drain() {
  if (!bus_) return {};
  Drained drained;
  for (int count = 0; count < mostAtOnce; ++count) {
    const int result = sd_bus_process(bus_.get(), nullptr);
    if (result == 0) return drained;
    drained.hasNews = true;
    if (result < 0 || sd_bus_is_open(bus_.get()) <= 0) {
      bus_.reset();
      return drained;
    }
  }
  drained.hasMore = true;
  return drained;
}

}  // namespace talmo
