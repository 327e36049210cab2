#pragma once

#include <optional>
#include <string>

#include "nowplaying/SystemNowPlaying.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

class SystemNowPlayingTest : public ComponentTest {
 protected:
  static constexpr const char* titleKey = "kMRMediaRemoteNowPlayingInfoTitle";
  static constexpr const char* artistKey = "kMRMediaRemoteNowPlayingInfoArtist";
  static constexpr const char* artworkKey = "kMRMediaRemoteNowPlayingInfoArtworkData";
  static constexpr const char* rateKey = "kMRMediaRemoteNowPlayingInfoPlaybackRate";

  SimulatedMediaRemote& remote() { return machine().mediaRemote(); }

  /// What a read gives, which it does once and on the main thread.
  std::optional<SystemNowPlayingInfo> read();
};

}  // namespace talmo::test
