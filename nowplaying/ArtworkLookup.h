#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Image.h"
#include "platform/NetworkResult.h"

namespace talmo {

/// Fetches artworks, and keeps the last one. Belongs to the main thread, which it never makes wait;
/// completions are called there, at once for the artwork at hand. A fetch that is under way serves
/// everyone who asks for the same meanwhile. When the object goes, completions are not called any
/// more.
class ArtworkLookup : public std::enable_shared_from_this<ArtworkLookup> {
 public:
  /// Gets nothing when there is no artwork.
  using Completion = std::function<void(std::optional<Image>)>;

  static std::shared_ptr<ArtworkLookup> make();

  ArtworkLookup(const ArtworkLookup&) = delete;
  ArtworkLookup& operator=(const ArtworkLookup&) = delete;

  /// The artwork that the public catalogue has for the track. No failure is logged.
  void resolveLookupArtwork(const std::string& track, const std::string& artist,
                            Completion completion);

  /// The artwork at a URL that the player has named. A network that fails is logged.
  void resolveSpotifyArtwork(const std::optional<std::string>& url, Completion completion);

 private:
  ArtworkLookup() = default;

  /// Answers from the artwork at hand, or notes who waits. True when a fetch has to be started.
  bool begin(const std::string& key, Completion completion);
  /// A fetch has ended. Any thread.
  static void finish(const std::weak_ptr<ArtworkLookup>& lookup, const std::string& key,
                     const std::optional<Image>& image);
  void complete(const std::string& key, const std::optional<Image>& image);

  /// The key or URL of the last artwork that was fetched, and that artwork.
  std::optional<std::string> lastArtworkURLString_;
  std::optional<Image> lastArtworkImage_;
  std::map<std::string, std::vector<Completion>> waiting_;
};

}  // namespace talmo
