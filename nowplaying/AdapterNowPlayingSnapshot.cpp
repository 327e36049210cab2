#include "nowplaying/AdapterNowPlayingSnapshot.h"

namespace talmo {

bool AdapterNowPlayingSnapshot::operator==(const AdapterNowPlayingSnapshot& other) const {
  return bundleID == other.bundleID && parentBundleID == other.parentBundleID &&
         title == other.title && artist == other.artist && album == other.album &&
         isPlaying == other.isPlaying && elapsedTime == other.elapsedTime &&
         duration == other.duration && artwork.has_value() == other.artwork.has_value();
}

}  // namespace talmo
