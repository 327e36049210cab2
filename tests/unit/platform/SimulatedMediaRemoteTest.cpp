#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/simulated/SimulatedMediaRemote.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/contract/MediaRemoteContract.h"
#include "tests/contract/NotificationsContract.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

class SimulatedNotificationsWorld : public NotificationsWorld {
 public:
  Dispatch& dispatch() override { return world_.time(); }
  Notifications& notifications() override { return world_.machine().notifications(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return world_.time().runUntil(condition, limit);
  }

 private:
  SimulatedWorld world_;
};

/// Tells of the one player that the suite has, as the system would.
class SimulatedMediaRemoteWorld : public MediaRemoteWorld {
 public:
  Dispatch& dispatch() override { return world_.time(); }
  SimulatedMediaRemote& mediaRemote() override { return world_.machine().mediaRemote(); }
  Notifications& notifications() override { return world_.machine().notifications(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return world_.time().runUntil(condition, limit);
  }

  void play(const std::string&, const std::string& title) override {
    info_ = {{"kMRMediaRemoteNowPlayingInfoTitle", title},
             {"kMRMediaRemoteNowPlayingInfoArtist", "Artist"},
             {"kMRMediaRemoteNowPlayingInfoArtworkData", MediaRemoteData{"picture"}},
             {"kMRMediaRemoteNowPlayingInfoPlaybackRate", 1.0}};
    mediaRemote().setProcess(4711);
    mediaRemote().setInfo(info_);
    mediaRemote().setIsPlaying(true);
  }

  void pause(const std::string&) override {
    info_["kMRMediaRemoteNowPlayingInfoPlaybackRate"] = 0.0;
    mediaRemote().setInfo(info_);
    mediaRemote().setIsPlaying(false);
  }

  void quit(const std::string&) override {
    mediaRemote().setProcess(0);
    mediaRemote().setInfo(std::nullopt);
    mediaRemote().setIsPlaying(false);
  }

 private:
  SimulatedWorld world_;
  MediaRemoteInfo info_;
};

INSTANTIATE_TEST_SUITE_P(Simulated, NotificationsContract, testing::Values([] {
                           return std::make_unique<SimulatedNotificationsWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, MediaRemoteContract, testing::Values([] {
                           return std::make_unique<SimulatedMediaRemoteWorld>();
                         }));

class SimulatedMediaRemoteTest : public testing::Test {
 protected:
  SimulatedMediaRemote& mediaRemote() { return world_.machine().mediaRemote(); }

  SimulatedWorld world_;
  const std::shared_ptr<Queue> queue_ =
      world_.time().makeSerialQueue("nl.brelm.test.media", QualityOfService::utility);
};

TEST_F(SimulatedMediaRemoteTest, FunctionsAndConstantsCanBeMissing) {
  mediaRemote().setHasFunction(SimulatedMediaRemote::infoFunction, false);
  EXPECT_FALSE(mediaRemote().hasFunction(SimulatedMediaRemote::infoFunction));
  EXPECT_TRUE(mediaRemote().hasFunction(SimulatedMediaRemote::processFunction));
  mediaRemote().setHasFunction(SimulatedMediaRemote::infoFunction, true);
  EXPECT_TRUE(mediaRemote().hasFunction(SimulatedMediaRemote::infoFunction));

  mediaRemote().setStringConstant(SimulatedMediaRemote::infoConstant, std::nullopt);
  EXPECT_EQ(mediaRemote().stringConstant(SimulatedMediaRemote::infoConstant), std::nullopt);
  mediaRemote().setStringConstant(SimulatedMediaRemote::infoConstant, "renamed");
  EXPECT_EQ(mediaRemote().stringConstant(SimulatedMediaRemote::infoConstant), "renamed");
}

TEST_F(SimulatedMediaRemoteTest, ChangesArePostedUnderTheNameThatTheConstantHolds) {
  int count = 0;
  world_.machine().notifications().addObserver("renamed", [&] { ++count; });
  mediaRemote().setStringConstant(SimulatedMediaRemote::isPlayingConstant, "renamed");
  mediaRemote().registerForNowPlayingNotifications(queue_);
  mediaRemote().setIsPlaying(true);
  mediaRemote().setIsPlaying(true);
  world_.time().runUntilIdle();
  EXPECT_EQ(count, 1);
}

TEST_F(SimulatedMediaRemoteTest, AnswersCanComeLate) {
  mediaRemote().setProcess(42);
  mediaRemote().setAnswerDelay(3s);
  std::optional<ProcessIdentifier> answer;
  mediaRemote().getNowPlayingApplicationPID(queue_,
                                            [&](ProcessIdentifier process) { answer = process; });
  mediaRemote().setProcess(43);
  world_.time().run(2s);
  EXPECT_EQ(answer, std::nullopt);
  world_.time().run(2s);
  EXPECT_EQ(answer, 42);
}

TEST_F(SimulatedMediaRemoteTest, CallsAreCounted) {
  mediaRemote().getNowPlayingApplicationIsPlaying(queue_, [](bool) {});
  mediaRemote().getNowPlayingApplicationIsPlaying(queue_, [](bool) {});
  mediaRemote().registerForNowPlayingNotifications(queue_);
  EXPECT_TRUE(mediaRemote().isRegistered());
  mediaRemote().unregisterForNowPlayingNotifications();
  EXPECT_FALSE(mediaRemote().isRegistered());
  EXPECT_EQ(mediaRemote().calls(SimulatedMediaRemote::isPlayingFunction), 2);
  EXPECT_EQ(mediaRemote().calls(SimulatedMediaRemote::registerFunction), 1);
  EXPECT_EQ(mediaRemote().calls(SimulatedMediaRemote::unregisterFunction), 1);
  EXPECT_EQ(mediaRemote().calls(SimulatedMediaRemote::infoFunction), 0);
}

}  // namespace
}  // namespace talmo::test
