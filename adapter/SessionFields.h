#pragma once

#include <memory>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "adapter/MediaSession.h"

namespace talmo {

/// A media session as the reader of the helper's output is told about it.
struct SessionFields {
  /// The longest text that is passed on, in bytes; the rest is cut off. Five texts of it, in which
  /// every byte becomes an escape of six, fit into a pipe (64 KiB, pipe(7)): a reader may wait for
  /// the end of a run without artwork before it reads.
  static constexpr std::size_t longestText = 1024;

  /// An object with all but the artwork: texts are valid UTF-8, numbers finite. Empty when there is
  /// no session.
  nlohmann::json values = nlohmann::json::object();
  /// The bytes of an image file; null or not empty.
  std::shared_ptr<const std::string> artwork;
  std::string trackIdentifier;

  static SessionFields of(const std::optional<MediaSession>& session);

  /// Whether the owner and its track are those of `other`; also when neither is a session.
  bool isSameTrack(const SessionFields& other) const;

  bool hasSameArtwork(const SessionFields& other) const;
};

/// Adds the JSON text of the object `values` to `text`, with `artwork`, if it is not null, in
/// base64 as one of its members.
void appendObject(std::string& text, const nlohmann::json& values, const std::string* artwork);

}  // namespace talmo
