#include "adapter/SessionFields.h"

#include <absl/strings/escaping.h>
#include <cmath>
#include <string_view>

namespace talmo {
namespace {

using nlohmann::json;

/// At most `longestText` bytes of `text`, without a part of a character at the end.
std::string_view beginning(std::string_view text) {
  if (text.size() <= SessionFields::longestText) return text;
  std::size_t end = SessionFields::longestText;
  // Every byte of a character but the first is 10xxxxxx, and there are three of those at most.
  while (end > SessionFields::longestText - 3 &&
         (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
    --end;
  }
  return text.substr(0, end);
}

/// Written and read again, which replaces what is not UTF-8: two texts are equal here when their
/// reader takes them for equal.
json textValue(std::string_view text) {
  return json::parse(json(beginning(text)).dump(-1, ' ', false, json::error_handler_t::replace));
}

void setText(json& values, const char* key, const std::optional<std::string>& text) {
  if (text) values[key] = textValue(*text);
}

void setNumber(json& values, const char* key, const std::optional<double>& number) {
  if (number && std::isfinite(*number)) values[key] = *number;
}

}  // namespace

SessionFields SessionFields::of(const std::optional<MediaSession>& session) {
  SessionFields fields;
  if (!session) return fields;
  json& values = fields.values;
  setText(values, "bundleIdentifier", session->bundleIdentifier);
  setText(values, "parentApplicationBundleIdentifier", session->parentApplicationBundleIdentifier);
  setText(values, "title", session->title);
  setText(values, "artist", session->artist);
  setText(values, "album", session->album);
  values["playing"] = session->isPlaying;
  setNumber(values, "elapsedTime", session->elapsedTime);
  setNumber(values, "duration", session->duration);
  if (session->artwork && !session->artwork->empty()) fields.artwork = session->artwork;
  fields.trackIdentifier = session->trackIdentifier;
  return fields;
}

bool SessionFields::isSameTrack(const SessionFields& other) const {
  // The title too: a radio station is one track to some players, and others name none at all.
  for (const char* key : {"bundleIdentifier", "parentApplicationBundleIdentifier", "title"}) {
    if (values.value(key, json()) != other.values.value(key, json())) return false;
  }
  return trackIdentifier == other.trackIdentifier;
}

bool SessionFields::hasSameArtwork(const SessionFields& other) const {
  if (artwork == other.artwork) return true;
  return artwork && other.artwork && *artwork == *other.artwork;
}

void appendObject(std::string& text, const json& values, const std::string* artwork) {
  const std::string object = values.dump();
  if (artwork == nullptr) {
    text += object;
    return;
  }
  // Base64 can stand in a JSON text as it is, so not even its megabytes go through `json`.
  std::string base64;
  absl::Base64Escape(*artwork, &base64);
  text += R"({"artworkData":")";
  text += base64;
  text += values.empty() ? "\"" : "\",";
  text.append(object, 1);
}

}  // namespace talmo
