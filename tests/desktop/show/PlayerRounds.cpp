#include "tests/desktop/show/PlayerRounds.h"

#include <chrono>

#include "tests/desktop/show/PanelRound.h"
#include "tests/support/Tunes.h"
#include "tests/support/UrlEscaped.h"

namespace talmo::test {
namespace {

constexpr const char* first = "Midnight in the Harbour";
constexpr const char* second = "Slow Boats";
constexpr const char* third = "The Lamps Go Out";

/// An album with its cover. Players read its artist and title off the folders.
std::vector<std::filesystem::path> writeAlbum(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> tunes = writeTunes(folder);
  writeCover(folder);
  std::size_t index = 0;
  for (const char* const title : {first, second, third}) {
    std::filesystem::path& tune = tunes.at(index++);
    const std::filesystem::path named = folder / (std::string(title) + ".wav");
    std::filesystem::rename(tune, named);
    tune = named;
  }
  return tunes;
}

}  // namespace

PlayerRounds::PlayerRounds(ShowDesktop& show)
    : show_(show),
      tunes_(writeAlbum(show.desktop().folder() / "Paper Lanterns" / "Night Ferry")),
      vlc_(DesktopPlayer::startVlc(show.desktop(), tunes_)),
      audacious_(DesktopPlayer::startAudacious(show.desktop(), tunes_)) {
  place(*vlc_, 30, 200);
  place(*audacious_, 430, 60);
}

void PlayerRounds::place(DesktopPlayer& player, int x, int y) {
  for (const ScreenWindows::Window& window : show_.windows().of(player.process().pid())) {
    if (window.isManaged) show_.move(window.id, x, y);
  }
}

void PlayerRounds::run() {
  runPanelRound(show_, *audacious_, *vlc_, first);
  runPinned(*vlc_, *audacious_);
  runPinned(*audacious_, *vlc_);
  show_.takePicture("players.png");
  runAuto();
}

PlayerRounds::Sight PlayerRounds::look(DesktopPlayer& player) const {
  Sight sight{.status = player.mpris().playbackStatus(), .title = player.mpris().track()};
  for (const std::filesystem::path& tune : tunes_) {
    if (sight.title == urlEscaped(tune.filename())) sight.title = tune.stem();
  }
  return sight;
}

std::string PlayerRounds::describe(DesktopPlayer& player) const {
  const Sight sight = look(player);
  return player.displayName() + (sight.status == "Playing" ? " plays" : " rests at") + " \"" +
         sight.title + '"';
}

void PlayerRounds::press(const ShowKey& key, DesktopPlayer& player, const Sight& expected) {
  show_.press(key, [&] { return describe(player); }, [&] { return look(player) == expected; });
  const bool isPlaying = expected.status == "Playing";
  show_.helperSees([&](const std::optional<AdapterNowPlayingSnapshot>& snapshot) {
    if (!snapshot) return false;
    // A player that is paused has the session only if it was the last to start.
    if (snapshot->bundleID != player.bundleID()) return !isPlaying;
    return snapshot->isPlaying == isPlaying && snapshot->artwork &&
           snapshot->title == expected.title;
  });
}

void PlayerRounds::runPinned(DesktopPlayer& player, DesktopPlayer& other) {
  show_.report().chapter("Pinned to " + player.displayName());
  show_.report().tell(
      "Both players play. Real keys are pressed while another window has the keyboard. Talmo's "
      "helper, which tells it what plays, looks on.");
  show_.startTalmo(player.id());
  const Sight otherBefore = look(other);
  show_.focusWindow();
  show_.check(describe(player), look(player) == Sight{"Playing", first});
  press(playPauseKey, player, {"Paused", first});
  press(playPauseKey, player, {"Playing", first});
  press(nextKey, player, {"Playing", second});
  press(previousKey, player, {"Playing", first});
  show_.windowGotNoKeys();
  show_.check(other.displayName() + " was left alone", look(other) == otherBefore);
  show_.endTalmo();
}

void PlayerRounds::runAuto() {
  show_.report().chapter("Nothing pinned: the keys follow what plays");
  show_.startTalmo("auto");
  show_.focusWindow();
  act(*vlc_, "Pause", "Paused");
  press(playPauseKey, *audacious_, {"Paused", first});
  act(*vlc_, "Play", "Playing");
  show_.report().tell("Sixteen seconds pass, until what Talmo knows of the players is too old.");
  // AutoRouting.cpp's age of a recent owner, and a second more.
  ShowDesktop::wait(std::chrono::seconds(16));
  press(nextKey, *vlc_, {"Playing", second});
  press(playPauseKey, *vlc_, {"Paused", second});
  press(playPauseKey, *vlc_, {"Playing", second});
  show_.windowGotNoKeys();
  show_.check("Audacious was left alone since", look(*audacious_) == Sight{"Paused", first});
  show_.endTalmo();
}

void PlayerRounds::act(DesktopPlayer& player, const char* method, const std::string& expected) {
  show_.check("By hand: " + std::string(method) + " in " + player.displayName(),
              player.mpris().call(method) && player.waitForStatus(expected));
}

}  // namespace talmo::test
