#include "nowplaying/ArtworkLookup.h"

#include <utility>

#include "nowplaying/Catalogue.h"
#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("now-playing");

std::optional<Image> decoded(const NetworkResult& result) {
  if (result.error) return std::nullopt;
  return platform().imageDecoder().decode(result.body);
}

}  // namespace

std::shared_ptr<ArtworkLookup> ArtworkLookup::make() {
  return std::shared_ptr<ArtworkLookup>(new ArtworkLookup);
}

void ArtworkLookup::resolveLookupArtwork(const std::string& track, const std::string& artist,
                                         Completion completion) {
  const std::string key = "lookup:" + track + "|" + artist;
  if (!begin(key, std::move(completion))) return;
  platform().network().get(
      Catalogue::searchURL(track, artist),
      [weak = weak_from_this(), key, track, artist](const NetworkResult& answer) {
        const std::optional<std::string> url =
            answer.error ? std::nullopt : Catalogue::artworkURL(answer.body, track, artist);
        if (!url) {
          finish(weak, key, std::nullopt);
          return;
        }
        platform().network().get(*url, [weak, key](const NetworkResult& artwork) {
          finish(weak, key, decoded(artwork));
        });
      });
}

void ArtworkLookup::resolveSpotifyArtwork(const std::optional<std::string>& url,
                                          Completion completion) {
  if (!url) {
    completion(std::nullopt);
    return;
  }
  if (!begin(*url, std::move(completion))) return;
  platform().network().get(*url,
                           [weak = weak_from_this(), key = *url](const NetworkResult& result) {
                             if (result.error)
                               log.error("Artwork fetch failed: %{public}s", *result.error);
                             finish(weak, key, decoded(result));
                           });
}

bool ArtworkLookup::begin(const std::string& key, Completion completion) {
  if (lastArtworkURLString_ == key) {
    completion(lastArtworkImage_);
    return false;
  }
  const auto [entry, isFirst] = waiting_.try_emplace(key);
  entry->second.push_back(std::move(completion));
  return isFirst;
}

void ArtworkLookup::finish(const std::weak_ptr<ArtworkLookup>& lookup, const std::string& key,
                           const std::optional<Image>& image) {
  platform().dispatch().mainQueue().async([lookup, key, image] {
    if (const std::shared_ptr<ArtworkLookup> self = lookup.lock()) self->complete(key, image);
  });
}

void ArtworkLookup::complete(const std::string& key, const std::optional<Image>& image) {
  if (image) {
    lastArtworkURLString_ = key;
    lastArtworkImage_ = image;
  }
  const auto entry = waiting_.extract(key);
  for (const Completion& completion : entry.mapped()) completion(image);
}

}  // namespace talmo
