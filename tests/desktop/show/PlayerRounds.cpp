#include "tests/desktop/show/PlayerRounds.h"

#include <iomanip>
#include <iostream>
#include <string>

#include "tests/support/Tunes.h"

namespace talmo::test {
namespace {

std::vector<std::filesystem::path> writeTunesWithCover(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> tunes = writeTunes(folder);
  writeCover(folder);
  return tunes;
}

/// What a person sees of a player.
struct Sight {
  std::string status;
  std::string track;

  bool operator==(const Sight&) const = default;

  std::string text() const { return status + ", " + track; }
};

Sight look(DesktopPlayer& player) {
  return {player.mpris().playbackStatus(), player.mpris().track()};
}

/// Whether the helper sees that the player does this. A player that is paused has the session only
/// if it was the last to start.
bool sees(const std::optional<AdapterNowPlayingSnapshot>& snapshot, const DesktopPlayer& player,
          const Sight& sight) {
  const bool isPlaying = sight.status == "Playing";
  if (!snapshot) return false;
  if (snapshot->bundleID != player.bundleID()) return !isPlaying;
  return snapshot->isPlaying == isPlaying && snapshot->artwork &&
         snapshot->title == std::filesystem::path(sight.track).stem();
}

}  // namespace

PlayerRounds::PlayerRounds(ShowDesktop& show)
    : show_(show),
      tunes_(writeTunesWithCover(show.desktop().folder() / "Tunes" / "Sine waves")),
      vlc_(DesktopPlayer::startVlc(show.desktop(), tunes_)),
      audacious_(DesktopPlayer::startAudacious(show.desktop(), tunes_)) {
  for (DesktopPlayer* player : {vlc_.get(), audacious_.get()}) {
    std::cout << "  " << std::left << std::setw(10) << player->displayName() << look(*player).text()
              << '\n';
  }
}

bool PlayerRounds::run() {
  bool good = runPinned(*vlc_, *audacious_);
  good = runPinned(*audacious_, *vlc_) && good;
  show_.takePicture("talmo-show.png");
  return good;
}

bool PlayerRounds::runPinned(DesktopPlayer& player, DesktopPlayer& other) {
  show_.startTalmo(player.id(), "Talmo, pinned to " + player.displayName());
  const Sight otherBefore = look(other);
  show_.focusWindow();

  const std::string first = tunes_[0].filename();
  const std::string second = tunes_[1].filename();
  const struct {
    ShowKey key;
    Sight expected;
  } presses[] = {
      {playPauseKey, {"Paused", first}},
      {playPauseKey, {"Playing", first}},
      {nextKey, {"Playing", second}},
      {previousKey, {"Playing", first}},
  };
  bool good = look(player) == Sight{"Playing", first};
  for (const auto& [key, expected] : presses) {
    good = show_.press(
               key, player.displayName(), [&] { return look(player).text(); },
               [&] { return look(player) == expected; }) &&
           good;
    good = show_.helperSees([&](const auto& snapshot) {
      return sees(snapshot, player, expected);
    }) && good;
  }
  good = show_.windowGotNoKeys() && good;
  good = ShowDesktop::print(other.displayName() + " was left alone (" + look(other).text() + ")",
                            look(other) == otherBefore) &&
         good;
  return show_.endTalmo() && good;
}

}  // namespace talmo::test
