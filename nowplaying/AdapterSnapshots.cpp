#include <absl/strings/escaping.h>
#include <utility>

#include "nowplaying/AdapterNowPlaying.h"
#include "platform/Platform.h"

namespace talmo {
namespace {

/// The value of that key when it is of that type.
template <class Value>
const Value* find(const AdapterState& state, std::string_view key) {
  const auto found = state.find(key);
  return found == state.end() ? nullptr : std::get_if<Value>(&found->second);
}

std::optional<std::string> text(const AdapterState& state, std::string_view key) {
  const auto* found = find<AdapterText>(state, key);
  return found != nullptr ? std::optional(std::string(found->view())) : std::nullopt;
}

std::optional<double> number(const AdapterState& state, std::string_view key) {
  const auto* found = find<double>(state, key);
  return found != nullptr ? std::optional(*found) : std::nullopt;
}

}  // namespace

AdapterState AdapterNowPlaying::applying(AdapterState payload, bool isDiff, AdapterState state) {
  if (!isDiff) return payload;
  while (!payload.empty()) {
    auto changed = payload.extract(payload.begin());
    if (std::holds_alternative<std::nullptr_t>(changed.mapped())) {
      state.erase(changed.key());
    } else {
      state.insert_or_assign(std::move(changed.key()), std::move(changed.mapped()));
    }
  }
  return state;
}

std::optional<AdapterNowPlayingSnapshot> AdapterNowPlaying::snapshotFrom(
    const AdapterState& state, const ArtworkDecoder& decodeArtwork) {
  std::optional<std::string> bundleID = text(state, "bundleIdentifier");
  std::optional<std::string> title = text(state, "title");
  const bool* isPlaying = find<bool>(state, "playing");
  if (!bundleID || !title || title->empty() || isPlaying == nullptr) return std::nullopt;
  const auto* artwork = find<AdapterText>(state, "artworkData");
  return AdapterNowPlayingSnapshot{
      .bundleID = std::move(*bundleID),
      .parentBundleID = text(state, "parentApplicationBundleIdentifier"),
      .title = std::move(*title),
      .artist = text(state, "artist").value_or(""),
      .album = text(state, "album"),
      .isPlaying = *isPlaying,
      .elapsedTime = number(state, "elapsedTime"),
      .duration = number(state, "duration"),
      .artwork = decodeArtwork(artwork != nullptr ? std::optional(*artwork) : std::nullopt)};
}

std::optional<Image> AdapterNowPlaying::decodedArtwork(const std::optional<AdapterText>& base64) {
  if (!base64) return std::nullopt;
  const std::string_view text = base64->view();
  std::string bytes;
  if (!absl::Base64Unescape({text.data(), text.size()}, &bytes)) return std::nullopt;
  return platform().imageDecoder().decode(bytes);
}

}  // namespace talmo
