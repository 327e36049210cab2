#pragma once

#include <optional>
#include <span>
#include <string>

namespace talmo {

/// What the helper is asked to do.
struct CommandLine {
  enum class Run { stream, get, send };

  Run run = Run::stream;
  bool wantsArtwork = true;
  /// Of `send`: see `SessionSource::send`. Not negative.
  int command = 0;

  /// The arguments after the framework's path: "stream", "get", "get --no-artwork", or "send" and
  /// a decimal number. Nothing when they are anything else.
  static std::optional<CommandLine> parse(std::span<const std::string> arguments);

  bool operator==(const CommandLine&) const = default;
};

}  // namespace talmo
