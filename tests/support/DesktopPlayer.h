#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/MprisClient.h"
#include "tests/support/PrivateDesktop.h"
#include "tests/support/TestProcess.h"

namespace talmo::test {

/// A real player on a private desktop that plays the tunes it was given, over and over.
class DesktopPlayer {
 public:
  /// Starts VLC with its window and waits until it plays the first tune. Throws when it does not.
  static std::unique_ptr<DesktopPlayer> startVlc(const PrivateDesktop& desktop,
                                                 const std::vector<std::filesystem::path>& tunes);

  /// The same for Audacious.
  static std::unique_ptr<DesktopPlayer> startAudacious(
      const PrivateDesktop& desktop, const std::vector<std::filesystem::path>& tunes);

  /// What starts VLC on `desktop`, without tunes. VLC refuses to run as root; there, the program
  /// is a copy of it that does not ask who it is.
  static std::vector<std::string> vlcCommand(const PrivateDesktop& desktop);

  /// The id of the player in Talmo's settings.
  const std::string& id() const { return id_; }

  const std::string& displayName() const { return displayName_; }

  /// The bundle identifier that Talmo knows it by.
  const std::string& bundleID() const { return bundleID_; }

  MprisClient& mpris() { return mpris_; }

  TestProcess& process() { return *process_; }

  /// Waits until the player's state is `status` ("Playing", "Paused").
  bool waitForStatus(const std::string& status);

  /// Waits until the player's current track is `fileName`.
  bool waitForTrack(const std::string& fileName);

 private:
  DesktopPlayer(const PrivateDesktop& desktop, std::string id, std::string displayName,
                std::string bundleID, std::vector<std::string> arguments);

  std::string id_;
  std::string displayName_;
  std::string bundleID_;
  std::unique_ptr<TestProcess> process_;
  MprisClient mpris_;
};

}  // namespace talmo::test
