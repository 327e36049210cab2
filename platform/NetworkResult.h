#pragma once

#include <optional>
#include <string>

namespace talmo {

/// How a request ended: with a server's answer, or with the reason why there is none.
struct NetworkResult {
  /// Why there is no answer, in words for the log; nothing when there is one.
  std::optional<std::string> error;
  /// The answer's HTTP status, whatever it says: a 404 is an answer, not an error.
  int status = 0;
  /// The answer's body as it was before any compression.
  std::string body;

  bool operator==(const NetworkResult&) const = default;
};

}  // namespace talmo
