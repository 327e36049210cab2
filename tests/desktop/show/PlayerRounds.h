#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/desktop/show/ShowDesktop.h"
#include "tests/support/DesktopPlayer.h"

namespace talmo::test {

/// VLC and Audacious play the same album. Talmo shows them in its panel, is pinned to each in turn,
/// and then follows the one that plays. They end with the object.
class PlayerRounds {
 public:
  /// `show` lives longer.
  explicit PlayerRounds(ShowDesktop& show);

  void run();

 private:
  /// What a person sees of a player.
  struct Sight {
    std::string status;
    std::string title;

    bool operator==(const Sight&) const = default;
  };

  void place(DesktopPlayer& player, int x, int y);

  Sight look(DesktopPlayer& player) const;
  std::string describe(DesktopPlayer& player) const;

  /// Presses a key and has both the player and the helper looked at.
  void press(const ShowKey& key, DesktopPlayer& player, const Sight& expected);

  /// Drives `player`, to which Talmo is pinned; `other` has to stay as it is.
  void runPinned(DesktopPlayer& player, DesktopPlayer& other);

  /// Has Talmo choose the player for itself.
  void runAuto();

  /// Does something to a player by hand.
  void act(DesktopPlayer& player, const char* method, const std::string& expected);

  ShowDesktop& show_;
  std::vector<std::filesystem::path> tunes_;
  std::unique_ptr<DesktopPlayer> vlc_;
  std::unique_ptr<DesktopPlayer> audacious_;
};

}  // namespace talmo::test
