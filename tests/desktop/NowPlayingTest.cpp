#include "tests/desktop/NowPlayingTest.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <set>

#include <gmock/gmock.h>

#include "nowplaying/AudioActivity.h"
#include "nowplaying/SystemNowPlaying.h"
#include "tests/support/DesktopPlayer.h"
#include "tests/support/Tunes.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

constexpr auto vlc = "org.videolan.vlc";
constexpr auto audacious = "org.atheme.audacious";

std::size_t openDescriptors() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

}  // namespace

NowPlayingTest::NowPlayingTest()
    : bundleFolder_(std::filesystem::path(TALMO_PROGRAM).parent_path()),
      tunes_(writeTunes(desktop_.folder() / "Tunes" / "Sine waves")) {
  writeCover(tunes_.front().parent_path());
  platform_ = std::make_unique<PlatformOnDesktop>(desktop_, bundleFolder_);
  adapter_ = AdapterNowPlaying::make();
}

NowPlayingTest::~NowPlayingTest() {
  adapter_ = nullptr;
}

bool NowPlayingTest::runUntil(const std::function<bool()>& condition) {
  return platform_->runUntil(condition);
}

bool NowPlayingTest::runUntilTrack(const std::string& bundleID, const std::string& title,
                                   bool isPlaying) {
  return runUntil([&] {
    const auto& snapshot = adapter_->snapshot();
    return snapshot && snapshot->bundleID == bundleID && snapshot->title == title &&
           snapshot->isPlaying == isPlaying;
  });
}

void NowPlayingTest::runOnQueue(const std::function<void()>& work) {
  ASSERT_TRUE(platform_->runOnQueue(work));
}

std::vector<pid_t> NowPlayingTest::helpers() const {
  return desktop_.processes("perl");
}

std::string NowPlayingTest::seen() const {
  const auto& snapshot = adapter_->snapshot();
  if (!snapshot) return "nothing";
  return snapshot->bundleID + (snapshot->isPlaying ? " plays " : " has paused ") + snapshot->title;
}

TEST_F(NowPlayingTest, ATrackChangePauseResumeAndQuitShowUp) {
  adapter_->start();
  const auto player = DesktopPlayer::startVlc(desktop_, tunes_);
  ASSERT_TRUE(runUntilTrack(vlc, "tune-1", true)) << seen();
  player->mpris().call("Next");
  ASSERT_TRUE(runUntilTrack(vlc, "tune-2", true)) << seen();
  player->mpris().call("Pause");
  ASSERT_TRUE(runUntilTrack(vlc, "tune-2", false)) << seen();
  player->mpris().call("Play");
  ASSERT_TRUE(runUntilTrack(vlc, "tune-2", true)) << seen();
  EXPECT_EQ(adapter_->snapshot()->duration, 300.0);
  player->process().end();
  EXPECT_TRUE(runUntil([&] { return !adapter_->snapshot(); })) << seen();
}

TEST_F(NowPlayingTest, TheArtworkOfTheTrackIsThere) {
  adapter_->start();
  const auto player = DesktopPlayer::startAudacious(desktop_, tunes_);
  const auto hasArtwork = [&] { return adapter_->snapshot() && adapter_->snapshot()->artwork; };
  ASSERT_TRUE(runUntil(hasArtwork)) << seen();
  EXPECT_EQ(adapter_->snapshot()->artwork->width, coverSize);
  EXPECT_EQ(adapter_->snapshot()->artwork->height, coverSize);
}

TEST_F(NowPlayingTest, TheSessionIsThePlayersThatStartedLastAndStaysWithIt) {
  adapter_->start();
  const auto first = DesktopPlayer::startVlc(desktop_, tunes_);
  ASSERT_TRUE(runUntilTrack(vlc, "tune-1", true)) << seen();
  const auto second = DesktopPlayer::startAudacious(desktop_, tunes_);
  ASSERT_TRUE(runUntil([&] { return adapter_->snapshot()->bundleID == audacious; })) << seen();
  second->mpris().call("Pause");
  ASSERT_TRUE(runUntil([&] { return !adapter_->snapshot()->isPlaying; })) << seen();
  EXPECT_EQ(adapter_->snapshot()->bundleID, audacious);
  first->mpris().call("Pause");
  ASSERT_TRUE(first->waitForStatus("Paused"));
  // Somebody has to see it paused: a player that pauses for a moment has not started anew.
  runOnQueue([] { AdapterNowPlaying::getSync(); });
  first->mpris().call("Play");
  EXPECT_TRUE(runUntilTrack(vlc, "tune-1", true)) << seen();
  first->process().end();
  EXPECT_TRUE(runUntil([&] { return adapter_->snapshot()->bundleID == audacious; })) << seen();
}

TEST_F(NowPlayingTest, AShortRunSeesWhatTheStreamSees) {
  adapter_->start();
  const auto player = DesktopPlayer::startVlc(desktop_, tunes_);
  ASSERT_TRUE(runUntilTrack(vlc, "tune-1", true)) << seen();
  std::optional<AdapterNowPlayingSnapshot> answer;
  runOnQueue([&] { answer = AdapterNowPlaying::getSync(); });
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->bundleID, vlc);
  EXPECT_EQ(answer->title, "tune-1");
  EXPECT_TRUE(answer->isPlaying);
  EXPECT_EQ(AdapterNowPlaying::recentOwner(15s)->bundleID, vlc);
}

TEST_F(NowPlayingTest, CommandsReachTheOwner) {
  adapter_->start();
  const auto player = DesktopPlayer::startVlc(desktop_, tunes_);
  ASSERT_TRUE(runUntilTrack(vlc, "tune-1", true)) << seen();
  runOnQueue([] { AdapterNowPlaying::send(2); });
  EXPECT_TRUE(runUntilTrack(vlc, "tune-1", false)) << seen();
  runOnQueue([] { AdapterNowPlaying::send(2); });
  EXPECT_TRUE(runUntilTrack(vlc, "tune-1", true)) << seen();
  runOnQueue([] { AdapterNowPlaying::send(4); });
  EXPECT_TRUE(runUntilTrack(vlc, "tune-2", true)) << seen();
  runOnQueue([] { AdapterNowPlaying::send(5); });
  EXPECT_TRUE(runUntilTrack(vlc, "tune-1", true)) << seen();
}

TEST_F(NowPlayingTest, AHelperThatIsKilledFreezesTheSnapshotAndAStartThawsIt) {
  adapter_->start();
  const auto player = DesktopPlayer::startVlc(desktop_, tunes_);
  ASSERT_TRUE(runUntilTrack(vlc, "tune-1", true)) << seen();
  ASSERT_EQ(helpers().size(), 1U);
  ::kill(helpers().front(), SIGKILL);
  ASSERT_TRUE(runUntil([&] { return helpers().empty(); }));
  player->mpris().call("Next");
  ASSERT_TRUE(player->waitForTrack("tune-2.wav"));
  // What a short run sees by now, the stream would have told of too.
  std::optional<AdapterNowPlayingSnapshot> answer;
  runOnQueue([&] { answer = AdapterNowPlaying::getSync(); });
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answer->title, "tune-2");
  EXPECT_EQ(adapter_->snapshot()->title, "tune-1");
  EXPECT_THAT(helpers(), IsEmpty());
  adapter_->start();
  EXPECT_TRUE(runUntilTrack(vlc, "tune-2", true)) << seen();
}

TEST_F(NowPlayingTest, TenRoundsOfStartAndStopLeaveNothingBehind) {
  const auto player = DesktopPlayer::startVlc(desktop_, tunes_);
  std::size_t before = 0;
  for (int round = 0; round <= 10; ++round) {
    int updates = 0;
    adapter_ = AdapterNowPlaying::make();
    adapter_->setOnUpdate([&] { ++updates; });
    adapter_->start();
    ASSERT_TRUE(runUntil([&] { return updates > 0; })) << "round " << round;
    ASSERT_EQ(helpers().size(), 1U);
    adapter_->stop();
    ASSERT_TRUE(runUntil([&] { return helpers().empty(); })) << "round " << round;
    // The first round opens what stays open; what watched its ended helper may close a moment
    // later, so that ten rounds may come out below this but never above.
    if (round == 0) before = openDescriptors();
  }
  EXPECT_TRUE(runUntil([&] { return openDescriptors() <= before; }))
      << openDescriptors() << " instead of " << before;
}

TEST_F(NowPlayingTest, AHelperThatHangsCostsItsTimeoutAndIsEnded) {
  const std::filesystem::path folder = desktop_.folder() / "bundle";
  std::filesystem::create_directories(folder / "resources");
  std::filesystem::create_directories(folder / "frameworks" / "MediaRemoteAdapter.framework");
  std::ofstream(folder / "resources" / "mediaremote-adapter.pl") << "sleep 600 while 1;\n";
  adapter_ = nullptr;
  platform_ = nullptr;
  platform_ = std::make_unique<PlatformOnDesktop>(desktop_, folder);

  LinuxDispatch& dispatch = platform_->services().dispatch();
  for (const auto& [timeout, work] : std::vector<std::pair<Duration, std::function<void()>>>{
           {1500ms, [] { EXPECT_EQ(AdapterNowPlaying::getSync(), std::nullopt); }},
           {300ms, [] { AdapterNowPlaying::send(2, 300ms); }}}) {
    Duration taken{};
    runOnQueue([&, &act = work] {
      const Uptime start = dispatch.uptime();
      act();
      taken = dispatch.uptime() - start;
    });
    EXPECT_GE(taken, timeout);
    // Generous, for a machine that is busy with something else.
    EXPECT_LT(taken, timeout + 5s);
    EXPECT_TRUE(runUntil([&] { return helpers().empty(); }));
  }
}

TEST_F(NowPlayingTest, TheSystemsOwnRecordSeesTheSame) {
  const std::shared_ptr<SystemNowPlaying> system = SystemNowPlaying::shared();
  ASSERT_NE(system, nullptr);
  std::optional<SystemNowPlayingInfo> info;
  const auto read = [&] { system->read([&](const auto& result) { info = result; }); };
  system->startObserving(read);
  const auto player = DesktopPlayer::startAudacious(desktop_, tunes_);
  ASSERT_TRUE(runUntil([&] { return info && info->isPlaying && info->artwork; }));
  EXPECT_EQ(info->bundleID, audacious);
  EXPECT_EQ(info->artwork->width, coverSize);
  const std::string first = info->title;
  player->mpris().call("Next");
  EXPECT_TRUE(runUntil([&] { return info->title != first; }));
  player->mpris().call("Pause");
  EXPECT_TRUE(runUntil([&] { return !info->isPlaying; }));
  player->process().end();
  EXPECT_TRUE(runUntil([&] { return !info; }));
  system->stopObserving();
}

TEST_F(NowPlayingTest, APausedPlayerFallsOutOfTheAudibleSetAfterTheLinger) {
  const auto activity = AudioActivity::make();
  activity->startPolling();
  const auto sounds = [&] { return activity->activeBundleIDs().get().contains(vlc); };
  const auto player = DesktopPlayer::startVlc(desktop_, tunes_);
  ASSERT_TRUE(runUntil(sounds));
  player->mpris().call("Pause");
  ASSERT_TRUE(player->waitForStatus("Paused"));
  LinuxDispatch& dispatch = platform_->services().dispatch();
  const Uptime paused = dispatch.uptime();
  ASSERT_TRUE(runUntil([&] { return !sounds(); }));
  // It was last observed at most one poll before it paused.
  EXPECT_GE(dispatch.uptime() - paused, AudioActivityHold::defaultLinger - 2500ms);
  player->mpris().call("Play");
  EXPECT_TRUE(runUntil(sounds));
  activity->stopPolling();
}

}  // namespace talmo::test
