#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <stdlib.h>
#include <string>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/mediasession/LinuxMediaRemote.h"
#include "support/MainQueueNotifications.h"
#include "tests/contract/MediaRemoteContract.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

/// Fake players in this process, on a bus of the world's own.
class LinuxMediaRemoteWorld : public MediaRemoteWorld {
 public:
  LinuxMediaRemoteWorld() {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus_.address().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", folder_.path().c_str(), 1);
    std::ofstream(cover()) << "picture";
  }

  ~LinuxMediaRemoteWorld() override {
    dispatch_.shutdown();
    ::unsetenv("XDG_RUNTIME_DIR");
  }

  Dispatch& dispatch() override { return dispatch_; }
  MediaRemote& mediaRemote() override { return mediaRemote_; }
  Notifications& notifications() override { return notifications_; }

  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return dispatch_.serveMainQueueUntil(condition, dispatch_.uptime() + limit);
  }

  void play(const std::string& name, const std::string& title) override {
    std::unique_ptr<FakePlayer>& player = players_[name];
    if (!player) {
      player = std::make_unique<FakePlayer>(
          FakePlayer::Start{.name = name, .playbackStatus = "Stopped", .onCommand = {}});
    }
    player->setTrack(
        {.title = title, .artists = {"Artist"}, .artUrl = "file://" + cover().string()});
    player->setPlaybackStatus("Playing");
  }

  void pause(const std::string& name) override { players_.at(name)->setPlaybackStatus("Paused"); }
  void quit(const std::string& name) override { players_.erase(name); }

 private:
  std::filesystem::path cover() const { return folder_.path() / "cover.png"; }

  PrivateBus bus_;
  TemporaryFolder folder_;
  std::map<std::string, std::unique_ptr<FakePlayer>> players_;
  LinuxDispatch dispatch_;
  MainQueueNotifications notifications_{dispatch_};
  LinuxMediaRemote mediaRemote_{notifications_};
};

INSTANTIATE_TEST_SUITE_P(Linux, MediaRemoteContract,
                         testing::Values([]() -> std::unique_ptr<MediaRemoteWorld> {
                           return std::make_unique<LinuxMediaRemoteWorld>();
                         }));

}  // namespace
}  // namespace talmo::test
