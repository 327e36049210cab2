#pragma once

#include <optional>
#include <string>

#include "adapter/MediaSession.h"
#include "adapter/SessionFields.h"

namespace talmo {

/// What the output of `stream` says after each look at the media session: a line, which is an
/// object with "payload" and "diff".
///
/// With "diff" false the payload is the full state: at first, for another owner or track, and when
/// the session ends, where it is empty. With "diff" true it holds what has changed, and null for
/// what has gone. So artwork is written once for a track, with its full state or when it comes.
class SessionStream {
 public:
  /// The line, ended by a line feed, that brings a reader of all lines before up to date; nothing
  /// when the reader is already.
  std::optional<std::string> next(const std::optional<MediaSession>& session);

 private:
  /// What the lines so far say; nothing before the first.
  std::optional<SessionFields> told_;
};

}  // namespace talmo
