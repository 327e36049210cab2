#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/desktop/show/ShowDesktop.h"
#include "tests/support/DesktopPlayer.h"

namespace talmo::test {

/// VLC and Audacious play, and Talmo is pinned to each in turn, then follows the one that plays.
/// They end with the object.
class PlayerRounds {
 public:
  /// `show` lives longer.
  explicit PlayerRounds(ShowDesktop& show);

  /// Whether every press did what the key says.
  bool run();

 private:
  /// Drives `player`, to which Talmo is pinned; `other` has to stay as it is.
  bool runPinned(DesktopPlayer& player, DesktopPlayer& other);

  /// Has Talmo choose the player for itself.
  bool runAuto();

  /// Does something to a player by hand and prints whether it has the state that is `expected`.
  static bool act(DesktopPlayer& player, const char* method, const std::string& expected);

  ShowDesktop& show_;
  std::vector<std::filesystem::path> tunes_;
  std::unique_ptr<DesktopPlayer> vlc_;
  std::unique_ptr<DesktopPlayer> audacious_;
};

}  // namespace talmo::test
