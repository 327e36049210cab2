#include "nowplaying/Catalogue.h"

#include <absl/strings/str_replace.h>
#include <algorithm>

#include <nlohmann/json.hpp>

#include "nowplaying/CatalogueCandidate.h"
#include "nowplaying/TrackTitle.h"
#include "support/UnicodeText.h"
#include "support/UrlQuery.h"

namespace talmo {
namespace {

constexpr const char* searchEndpoint = "https://itunes.apple.com/search";

// The sizes in the artworks' URLs: the one that answers name, and the one that the card shows.
constexpr const char* smallSize = "100x100";
constexpr const char* cardSize = "300x300";

/// What stands before the first comma: services join the names of several artists by commas.
std::string firstArtist(const std::string& artist) {
  return std::string(UnicodeText::trimmed(artist.substr(0, artist.find(','))));
}

}  // namespace

std::string Catalogue::searchURL(const std::string& track, const std::string& artist) {
  const UrlQuery query{
      .items = {{"term", TrackTitle::strippingFeatureSuffix(track) + " " + firstArtist(artist)},
                {"media", "music"},
                {"entity", "song"},
                {"limit", "5"}}};
  return std::string(searchEndpoint) + "?" + query.percentEncoded();
}

std::optional<std::string> Catalogue::artworkURL(const std::string& answer,
                                                 const std::string& track,
                                                 const std::string& artist) {
  const nlohmann::json json = nlohmann::json::parse(answer, nullptr, false);
  const auto results = json.find("results");
  if (results == json.end() || !results->is_array()) return std::nullopt;
  const auto entry = std::ranges::find_if(*results, [&](const nlohmann::json& candidate) {
    return CatalogueCandidate::candidateMatches(candidate, track, artist);
  });
  if (entry == results->end()) return std::nullopt;
  const auto url = entry->find("artworkUrl100");
  if (url == entry->end() || !url->is_string()) return std::nullopt;
  return absl::StrReplaceAll(url->get_ref<const std::string&>(), {{smallSize, cardSize}});
}

}  // namespace talmo
