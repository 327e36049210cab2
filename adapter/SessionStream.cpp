#include "adapter/SessionStream.h"

#include <utility>

namespace talmo {
namespace {

using nlohmann::json;

json difference(const json& before, const json& now) {
  json changes = json::object();
  for (const auto& [key, value] : now.items()) {
    if (!before.contains(key) || before[key] != value) changes[key] = value;
  }
  for (const auto& [key, value] : before.items()) {
    if (!now.contains(key)) changes[key] = nullptr;
  }
  return changes;
}

std::string line(bool isDifference, const json& values, const std::string* artwork) {
  std::string text = isDifference ? R"({"diff":true,"payload":)" : R"({"diff":false,"payload":)";
  appendObject(text, values, artwork);
  text += "}\n";
  return text;
}

}  // namespace

std::optional<std::string> SessionStream::next(const std::optional<MediaSession>& session) {
  const std::optional<SessionFields> before =
      std::exchange(told_, std::optional(SessionFields::of(session)));
  const SessionFields& now = *told_;
  if (!before || !now.isSameTrack(*before)) return line(false, now.values, now.artwork.get());

  json changes = difference(before->values, now.values);
  const std::string* newArtwork = nullptr;
  if (!now.hasSameArtwork(*before)) {
    newArtwork = now.artwork.get();
    if (newArtwork == nullptr) changes["artworkData"] = nullptr;
  }
  if (changes.empty() && newArtwork == nullptr) return std::nullopt;
  return line(true, changes, newArtwork);
}

}  // namespace talmo
