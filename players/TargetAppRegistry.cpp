#include "players/TargetAppRegistry.h"

#include <algorithm>

#include "platform/Platform.h"
#include "web/WebPlayerRegistry.h"

namespace talmo {
namespace {

// Virtual key codes (HIToolbox's Events.h) and modifier masks (CGEventFlags).
constexpr std::uint16_t space = 49;
constexpr std::uint16_t rightArrow = 124;
constexpr std::uint16_t leftArrow = 123;
constexpr std::uint16_t letterN = 45;
constexpr std::uint16_t letterP = 35;
constexpr std::uint64_t none = 0;
constexpr std::uint64_t command = 0x100000;
constexpr std::uint64_t control = 0x40000;
constexpr std::uint64_t shift = 0x20000;

KeyMap strokes(std::uint16_t next, std::uint16_t previous, std::uint64_t flags) {
  return {.playPause = {space, none}, .next = {next, flags}, .previous = {previous, flags}};
}

KeyMap arrows(std::uint64_t flags) {
  return strokes(rightArrow, leftArrow, flags);
}

// The modifiers differ from player to player: each row is what that player understands.
std::vector<TargetApp> nativePlayers() {
  return {
      {"spotify", "Spotify", "com.spotify.client", ScriptingBridge{}},
      {"music", "Apple Music", "com.apple.Music", ScriptingBridge{}},
      {"swinsian", "Swinsian", "com.swinsian.Swinsian", ScriptingBridge{}},
      {"tidal", "TIDAL", "com.tidal.desktop", arrows(command)},
      {"deezer", "Deezer", "com.deezer.deezer-desktop", arrows(control)},
      {"qobuz", "Qobuz", "com.qobuz.QobuzDesktop", arrows(control)},
      {"amazon-music", "Amazon Music", "com.amazon.music", arrows(none)},
      {"soundcloud", "SoundCloud", "com.soundcloud.desktop", arrows(shift)},
      {"daftcloud", "DaftCloud", "com.obrhoff.daftcloud", arrows(command)},
      {"plexamp", "Plexamp", "tv.plex.plexamp", arrows(none)},
      {"pocket-casts", "Pocket Casts", "com.electron.pocket-casts", arrows(none)},
      {"vlc", "VLC", "org.videolan.vlc", arrows(command)},
      {"youtube-music", "YouTube Music", "com.github.th-ch.youtube-music",
       strokes(letterN, letterP, shift)},
      {"vox", "Vox", "com.coppertino.Vox", arrows(command)},
      {"doppler", "Doppler", "co.brushedtype.doppler-macos", arrows(command)},
  };
}

struct State {
  std::vector<TargetApp> all = nativePlayers();
  std::vector<TargetApp> webApps;

  State() {
    for (LocalPlayer& player : platform().workspace().localPlayers()) {
      all.push_back({std::move(player.id), std::move(player.displayName),
                     std::move(player.bundleID), ScriptingBridge{}});
    }
    for (const WebPlayerTarget& target : WebPlayerRegistry::all()) {
      webApps.push_back({target.id, target.displayName, "", target});
    }
  }
};

const State& state() {
  return platform().states().of<State>();
}

}  // namespace

const std::vector<TargetApp>& TargetAppRegistry::all() {
  return state().all;
}

const std::vector<TargetApp>& TargetAppRegistry::webApps() {
  return state().webApps;
}

std::optional<TargetApp> TargetAppRegistry::app(std::string_view id) {
  for (const std::vector<TargetApp>* list : {&webApps(), &all()}) {
    const auto found = std::ranges::find(*list, id, &TargetApp::id);
    if (found != list->end()) return *found;
  }
  return std::nullopt;
}

std::optional<std::string> TargetAppRegistry::defaultInstalledID() {
  const auto found = std::ranges::find_if(all(), &TargetApp::isInstalled);
  if (found == all().end()) return std::nullopt;
  return found->id;
}

}  // namespace talmo
