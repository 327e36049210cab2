#include <atomic>
#include <chrono>
#include <map>

#include "platform/linux/applications/LinuxAppleEvents.h"
#include "platform/linux/applications/LinuxApplications.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "tests/backend/applications/BusNames.h"
#include "tests/backend/applications/PlayersTest.h"
#include "tests/contract/AppleEventsContract.h"
#include "tests/support/FakePlayer.h"

namespace talmo::test {
namespace {

/// Fake players in this process, on a bus of the world's own.
class LinuxAppleEventsWorld : public AppleEventsWorld {
 public:
  LinuxAppleEventsWorld() {
    PrivateData::clear();
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus_.address().c_str(), 1);
  }

  AppleEvents& appleEvents() override { return appleEvents_; }

  void startPlayer(const std::string& bundleID) override {
    Record& record = records_[bundleID];
    const std::string name = playerName(bundleID);
    record.player = std::make_unique<FakePlayer>(
        FakePlayer::Start{.name = name, .onCommand = [&record](const std::string& command) {
                            if (record.manner != Manner::answers) return;
                            const MutexLock lock(record.mutex);
                            record.received.push_back(selector(command));
                          }});
    record.manner = Manner::answers;
  }

  void quitPlayer(const std::string& bundleID) override {
    records_[bundleID].player.reset();
    waitUntilGone(playerName(bundleID));
  }

  void setManner(const std::string& bundleID, Manner manner) override {
    Record& record = records_[bundleID];
    record.manner = manner;
    record.player->setBehaviour(manner == Manner::answers ? FakePlayer::Behaviour::answers
                                : manner == Manner::fails ? FakePlayer::Behaviour::fails
                                                          : FakePlayer::Behaviour::hangs);
  }

  std::vector<std::string> received(const std::string& bundleID) override {
    Record& record = records_[bundleID];
    const MutexLock lock(record.mutex);
    return record.received;
  }

  void setTrack(const std::string& bundleID, const Track& track) override {
    FakeTrack shown{.title = track.name, .artUrl = track.artworkUrl};
    if (!track.artist.empty()) shown.artists = {track.artist};
    records_[bundleID].player->setTrack(shown);
  }

  void setPlayerState(const std::string& bundleID, PlayerState state) override {
    records_[bundleID].player->setPlaybackStatus(state == PlayerState::playing  ? "Playing"
                                                 : state == PlayerState::paused ? "Paused"
                                                                                : "Stopped");
  }

  Uptime now() override { return std::chrono::steady_clock::now(); }

 private:
  struct Record {
    std::atomic<Manner> manner = Manner::answers;
    Mutex mutex;
    std::vector<std::string> received TALMO_GUARDED_BY(mutex);
    // Last, so that its thread ends before what it uses.
    std::unique_ptr<FakePlayer> player;
  };

  static std::string playerName(const std::string& bundleID) {
    return std::string(LinuxApplications::withBundleID(bundleID)->playerNames.front());
  }

  static std::string selector(const std::string& command) {
    if (command == "PlayPause") return "playpause";
    if (command == "Next") return "nextTrack";
    return command == "Previous" ? "previousTrack" : command;
  }

  PrivateBus bus_;
  LinuxAppleEvents appleEvents_;
  std::map<std::string, Record> records_;
};

INSTANTIATE_TEST_SUITE_P(Linux, AppleEventsContract,
                         testing::Values([]() -> std::unique_ptr<AppleEventsWorld> {
                           return std::make_unique<LinuxAppleEventsWorld>();
                         }));

}  // namespace
}  // namespace talmo::test
