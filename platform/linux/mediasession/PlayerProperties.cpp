#include "platform/linux/mediasession/PlayerProperties.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include <systemd/sd-bus.h>

#include "platform/linux/mediasession/UrlText.h"

namespace talmo {
namespace {

constexpr double microsecondsPerSecond = 1e6;

/// A value within a dictionary of variants.
class Value {
 public:
  explicit Value(sd_bus_message* message) : message_(message) {}

  std::optional<std::string> text(char type = 's') const {
    const char* value = nullptr;
    if (!basic(type, &value)) return std::nullopt;
    return value;
  }

  std::optional<double> real() const {
    double value = 0;
    if (!basic('d', &value) || !std::isfinite(value)) return std::nullopt;
    return value;
  }

  /// A time that is not before the beginning, in seconds.
  std::optional<double> seconds() const {
    std::int64_t value = 0;
    std::uint64_t positive = 0;
    if (basic('x', &value)) {
      if (value < 0) return std::nullopt;
      return static_cast<double>(value) / microsecondsPerSecond;
    }
    // What some players have taken lengths to be.
    if (!basic('t', &positive)) return std::nullopt;
    return static_cast<double>(positive) / microsecondsPerSecond;
  }

  /// The texts of an array.
  std::optional<std::vector<std::string>> texts() const {
    if (!has("as") || sd_bus_message_enter_container(message_, 'v', "as") <= 0) return std::nullopt;
    std::vector<std::string> found;
    if (sd_bus_message_enter_container(message_, 'a', "s") > 0) {
      const char* value = nullptr;
      while (sd_bus_message_read_basic(message_, 's', &value) > 0) found.emplace_back(value);
      sd_bus_message_exit_container(message_);
    }
    sd_bus_message_exit_container(message_);
    return found;
  }

  /// Calls `entry` with each key and value of a dictionary within.
  void entries(const std::function<void(std::string_view, const Value&)>& entry) const;

 private:
  bool has(std::string_view signature) const {
    char type = 0;
    const char* contents = nullptr;
    return sd_bus_message_peek_type(message_, &type, &contents) > 0 && type == 'v' &&
           contents == signature;
  }

  bool basic(char type, void* value) const {
    const char signature[] = {type, '\0'};
    if (!has(signature) || sd_bus_message_enter_container(message_, 'v', signature) <= 0) {
      return false;
    }
    const bool isRead = sd_bus_message_read_basic(message_, type, value) > 0;
    sd_bus_message_exit_container(message_);
    return isRead;
  }

  sd_bus_message* message_;
};

/// Calls `entry` with each key and value of the dictionary that comes next; a value that it does
/// not read is skipped.
void readDictionary(sd_bus_message* message,
                    const std::function<void(std::string_view, const Value&)>& entry) {
  if (sd_bus_message_enter_container(message, 'a', "{sv}") <= 0) return;
  while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
    const char* key = nullptr;
    if (sd_bus_message_read_basic(message, 's', &key) <= 0) return;
    entry(key, Value(message));
    if (sd_bus_message_at_end(message, 0) == 0) sd_bus_message_skip(message, "v");
    if (sd_bus_message_exit_container(message) < 0) return;
  }
  sd_bus_message_exit_container(message);
}

void Value::entries(const std::function<void(std::string_view, const Value&)>& entry) const {
  if (!has("a{sv}") || sd_bus_message_enter_container(message_, 'v', "a{sv}") <= 0) return;
  readDictionary(message_, entry);
  sd_bus_message_exit_container(message_);
}

std::optional<std::string> joined(const std::optional<std::vector<std::string>>& texts) {
  if (!texts) return std::nullopt;
  std::string result;
  for (const std::string& text : *texts) {
    if (text.empty()) continue;
    if (!result.empty()) result += ", ";
    result += text;
  }
  if (result.empty()) return std::nullopt;
  return boundedText(std::move(result));
}

std::optional<std::string> bounded(std::optional<std::string> text) {
  if (text) text = boundedText(std::move(*text));
  return text;
}

PlaybackStatus statusOf(const std::optional<std::string>& text) {
  if (text == "Playing") return PlaybackStatus::playing;
  return text == "Paused" ? PlaybackStatus::paused : PlaybackStatus::stopped;
}

void readTrack(PlayerState& state, const Value& metadata) {
  std::string url;
  metadata.entries([&](std::string_view key, const Value& value) {
    if (key == "xesam:title") {
      state.title = bounded(value.text()).value_or("");
    } else if (key == "xesam:artist") {
      state.artist = joined(value.texts());
    } else if (key == "xesam:album") {
      state.album = bounded(value.text());
    } else if (key == "xesam:url") {
      url = bounded(value.text()).value_or("");
    } else if (key == "mpris:length") {
      state.duration = value.seconds();
    } else if (key == "mpris:trackid") {
      std::optional<std::string> path = value.text('o');
      if (!path) path = value.text();
      state.trackIdentifier = bounded(std::move(path)).value_or("");
    } else if (key == "mpris:artUrl") {
      state.artworkUrl = value.text().value_or("");
    }
  });
  if (state.title.empty()) state.title = titleFromUrl(url);
}

}  // namespace

PlayerState readPlayerProperties(sd_bus_message* reply) {
  PlayerState state;
  readDictionary(reply, [&](std::string_view key, const Value& value) {
    if (key == "PlaybackStatus") {
      state.status = statusOf(value.text());
    } else if (key == "Position") {
      state.elapsedTime = value.seconds();
    } else if (key == "Rate") {
      state.rate = value.real().value_or(1);
    } else if (key == "Metadata") {
      readTrack(state, value);
    }
  });
  return state;
}

}  // namespace talmo
