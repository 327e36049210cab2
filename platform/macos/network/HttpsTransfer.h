#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Network.h"

namespace talmo {

/// One request under way: what has come of its answer, and whether it may go on. Belongs to one
/// queue.
class HttpsTransfer {
 public:
  explicit HttpsTransfer(Network::Completion completion) : completion_(std::move(completion)) {}

  /// Whether a redirect to `url` may be followed. Where not, the request has failed.
  bool follow(const std::string& url);

  /// Adds a piece of the body. False when that makes it too large: the request has failed.
  bool receive(std::string_view piece);

  /// It has taken too long: the request has failed, unless it has before.
  void expire();

  /// Calls the completion: with why this request failed, or else with what the system says, an
  /// error in words or the answer's status; once, as the last thing.
  void complete(std::optional<std::string> error, int status);

 private:
  Network::Completion completion_;
  std::string body_;
  std::optional<std::string> failure_;
  int redirects_ = 0;
};

}  // namespace talmo
