#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace talmo {

/// A media key. The raw values are the system's auxiliary-control key types that media-key events
/// carry (`NX_KEYTYPE_PLAY` to `NX_KEYTYPE_REWIND`, IOKit's ev_keymap.h).
enum class MediaKey : std::int32_t {
  playPause = 16,
  next = 17,
  previous = 18,
  fast = 19,
  rewind = 20,
};

/// The key of a raw value; nothing for a value outside 16 to 20.
constexpr std::optional<MediaKey> mediaKey(std::int32_t rawValue) {
  if (rawValue < 16 || rawValue > 20) return std::nullopt;
  return static_cast<MediaKey>(rawValue);
}

/// The case name, for log lines.
constexpr std::string_view name(MediaKey key) {
  switch (key) {
    case MediaKey::playPause:
      return "playPause";
    case MediaKey::next:
      return "next";
    case MediaKey::previous:
      return "previous";
    case MediaKey::fast:
      return "fast";
    case MediaKey::rewind:
      return "rewind";
  }
  return {};
}

}  // namespace talmo
