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
  return runAuto() && good;
}

bool PlayerRounds::act(DesktopPlayer& player, const char* method, const std::string& expected) {
  const bool good = player.mpris().call(method) && player.waitForStatus(expected);
  return ShowDesktop::print("By hand: " + std::string(method) + " in " + player.displayName(),
                            good);
}

bool PlayerRounds::runAuto() {
  show_.startTalmo("auto", "Talmo in auto mode, both players there");
  show_.focusWindow();
  const auto press = [this](const ShowKey& key, DesktopPlayer& player, const Sight& expected) {
    const bool good = show_.press(
        key, player.displayName(), [&] { return look(player).text(); },
        [&] { return look(player) == expected; });
    return show_.helperSees([&](const auto& snapshot) {
      return sees(snapshot, player, expected);
    }) && good;
  };
  const std::string first = tunes_[0].filename();
  const std::string second = tunes_[1].filename();

  bool good = act(*vlc_, "Pause", "Paused");
  good = press(playPauseKey, *audacious_, {"Paused", first}) && good;
  good = act(*vlc_, "Play", "Playing") && good;
  // AutoRouting.cpp's age of a recent owner, and a second more.
  show_.wait(std::chrono::seconds(16), "until what Talmo knows of the session is old");
  good = press(nextKey, *vlc_, {"Playing", second}) && good;
  good = press(playPauseKey, *vlc_, {"Paused", second}) && good;
  good = press(playPauseKey, *vlc_, {"Playing", second}) && good;
  good = show_.windowGotNoKeys() && good;
  good = ShowDesktop::print("Audacious was left alone since (" + look(*audacious_).text() + ")",
                            look(*audacious_) == Sight{"Paused", first}) &&
         good;
  return show_.endTalmo() && good;
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
