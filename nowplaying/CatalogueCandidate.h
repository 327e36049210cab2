#pragma once

#include <string>

#include <nlohmann/json_fwd.hpp>

namespace talmo {

/// An entry among the results of a catalogue search. Any thread.
class CatalogueCandidate {
 public:
  CatalogueCandidate() = delete;

  /// Whether the entry can be the track: its title and the track's, and both artists, agree in one
  /// being a part of the other.
  static bool candidateMatches(const nlohmann::json& entry, const std::string& track,
                               const std::string& artist);
};

}  // namespace talmo
