#include "nowplaying/CatalogueCandidate.h"

#include <string_view>

#include <nlohmann/json.hpp>

#include "nowplaying/TrackTitle.h"
#include "support/UnicodeText.h"

namespace talmo {
namespace {

/// The text as texts are compared.
std::string comparable(std::string_view text) {
  return UnicodeText::composed(UnicodeText::lowerCase(text));
}

const std::string* text(const nlohmann::json& entry, const char* key) {
  const auto found = entry.find(key);
  return found == entry.end() ? nullptr : found->get_ptr<const std::string*>();
}

bool contains(std::string_view whole, std::string_view part) {
  return whole.find(part) != std::string_view::npos;
}

}  // namespace

bool CatalogueCandidate::candidateMatches(const nlohmann::json& entry, const std::string& track,
                                          const std::string& artist) {
  const std::string* const trackName = text(entry, "trackName");
  const std::string* const artistName = text(entry, "artistName");
  if (trackName == nullptr || artistName == nullptr) return false;
  const std::string found = comparable(TrackTitle::strippingFeatureSuffix(*trackName));
  const std::string wanted = comparable(track);
  if (!found.starts_with(wanted) && !wanted.starts_with(found)) return false;
  const std::string foundArtist = comparable(*artistName);
  const std::string wantedArtist = comparable(artist);
  return contains(foundArtist, wantedArtist) || contains(wantedArtist, foundArtist);
}

}  // namespace talmo
