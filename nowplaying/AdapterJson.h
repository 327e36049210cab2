#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "nowplaying/AdapterEnvelope.h"
#include "nowplaying/AdapterState.h"

namespace talmo {

/// Reads the JSON that the adapter writes. Any thread.
class AdapterJson {
 public:
  AdapterJson() = delete;

  /// How many bytes the reader needs behind a text. A string with as much capacity to spare is read
  /// where it is; any other is copied first.
  static constexpr std::size_t padding = 64;

  /// A stream line; nothing when it is not JSON, no object, or has no payload that is one.
  static std::optional<AdapterEnvelope> envelope(std::string line);

  /// A flat object; nothing when the text is not JSON or no object.
  static std::optional<AdapterState> object(std::string text);
};

}  // namespace talmo
