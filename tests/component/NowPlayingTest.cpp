#include "tests/component/NowPlayingTest.h"

#include <algorithm>
#include <chrono>

#include <gmock/gmock.h>

#include "permissions/AutomationPermission.h"
#include "web/WebTabDetection.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr std::uint32_t playing = 0x6B505350;  // 'kPSP'
constexpr std::uint32_t paused = 0x6B505370;   // 'kPSp'

}  // namespace

TEST_P(NowPlayingTest, NothingIsShownAtFirstAndWithoutATarget) {
  EXPECT_EQ(shown(), "idle");
  launch(spotify);
  start();
  stream(spotify, "Song");
  ASSERT_TRUE(runUntil([&] { return nowPlaying().mediaOwnerTitle() == "Song"; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_THAT(history(), IsEmpty());
}

TEST_P(NowPlayingTest, WithoutAProviderThereIsNoTarget) {
  nowPlaying().setTargetProvider({});
  start();
  stream(spotify, "Song");
  ASSERT_TRUE(runUntil([&] { return nowPlaying().mediaOwnerTitle() == "Song"; }));
  EXPECT_EQ(shown(), "idle");
}

TEST_P(NowPlayingTest, ATargetThatDoesNotRunIsIdleWhateverPlays) {
  setTarget("vlc");
  const ProcessIdentifier process = launch(vlc);
  startWarm();
  stream(vlc, "Song", R"(,"artworkData":"")");
  ASSERT_TRUE(runUntilShown("Song"));
  machine().applications().quit(process);
  poke();
  ASSERT_TRUE(runUntilShown("idle"));
}

TEST_P(NowPlayingTest, TheAdaptersTrackIsShown) {
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntilShown("Song"));
  EXPECT_EQ(std::get<NowPlayingTrack>(nowPlaying().state().get()).artist, "Artist");
  EXPECT_TRUE(logs("adapter now-playing: Song \u2014 Artist (art: false, playing: true)"));
  stream(vlc, "Song", R"(,"playing":false)");
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  EXPECT_TRUE(logs("adapter now-playing: Song \u2014 Artist (art: false, playing: false)"));
}

TEST_P(NowPlayingTest, ItsLinesAreForDebuggingOnly) {
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntilShown("Song"));
  EXPECT_THAT(machine().log().messages(LogLevel::debug),
              Contains("adapter now-playing: Song \u2014 Artist (art: false, playing: true)"));
}

TEST_P(NowPlayingTest, AHelperProcessOfTheTargetIsTheTarget) {
  setTarget("spotify");
  launch(spotify);
  start();
  stream("com.spotify.client.helper", "Song");
  ASSERT_TRUE(runUntilShown("Song"));
  stream("com.example.other", "Other",
         R"(,"parentApplicationBundleIdentifier":"com.spotify.client")");
  ASSERT_TRUE(runUntilShown("Other"));
}

TEST_P(NowPlayingTest, ANameThatOnlyBeginsLikeTheTargetsIsAnothers) {
  setTarget("vlc");
  launch(vlc);
  start();
  stream("org.videolan.vlcplayer", "Song");
  ASSERT_TRUE(runUntil([&] { return nowPlaying().mediaOwnerTitle() == "Song"; }));
  ASSERT_TRUE(runUntilShown("[VLC]"));
  stream(vlc, "Last");
  ASSERT_TRUE(runUntilShown("Last"));
  EXPECT_THAT(history(), ElementsAre("[VLC]", "Last"));
}

TEST_P(NowPlayingTest, TheSystemIsAskedWhereTheAdapterTellsOfAnother) {
  setTarget("vlc");
  const ProcessIdentifier process = launch(vlc);
  start();
  stream(spotify, "Another");
  setSystem(process, "Song");
  ASSERT_TRUE(runUntilShown("Song"));
  EXPECT_TRUE(logs("system now-playing: Song \u2014  (art: false, playing: true)"));
  setSystem(process, "Song", false);
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  stream(vlc, "Streamed");
  ASSERT_TRUE(runUntilShown("Streamed"));
}

TEST_P(NowPlayingTest, TheSystemsArtworkIsShown) {
  setTarget("vlc");
  machine().mediaRemote().setProcess(launch(vlc));
  machine().mediaRemote().setInfo(
      MediaRemoteInfo{{"kMRMediaRemoteNowPlayingInfoTitle", "Song"},
                      {"kMRMediaRemoteNowPlayingInfoArtworkData", MediaRemoteData{artwork(5)}},
                      {"kMRMediaRemoteNowPlayingInfoPlaybackRate", 1.0}});
  start();
  ASSERT_TRUE(runUntilShown("Song 5"));
  EXPECT_TRUE(logs("system now-playing: Song \u2014  (art: true, playing: true)"));
  EXPECT_THAT(requests(), IsEmpty());
}

TEST_P(NowPlayingTest, APlayerOfWhichNobodyTellsRunsWithoutInformation) {
  setTarget("vlc");
  launch(vlc);
  setSystem(launch(spotify), "Another");
  start();
  ASSERT_TRUE(runUntilShown("[VLC]"));
  setSystem(0, "Nobody's");
  ASSERT_TRUE(world().runMainQueue());
  stream(vlc, "Last");
  ASSERT_TRUE(runUntilShown("Last"));
  EXPECT_THAT(history(), ElementsAre("[VLC]", "Last"));
}

TEST_P(NowPlayingTest, WithoutTheSystemsRecordThePlayersAreAskedAtOnce) {
  machine().mediaRemote().setHasFunction(SimulatedMediaRemote::infoFunction, false);
  setTarget("vlc");
  setSystem(launch(vlc), "Song");
  start();
  ASSERT_TRUE(runUntilShown("[VLC]"));
  EXPECT_EQ(machine().mediaRemote().calls(SimulatedMediaRemote::processFunction), 0);
}

TEST_P(NowPlayingTest, AScriptablePlayerThatHasConsentedIsAsked) {
  setTarget("spotify");
  launch(spotify);
  consent(spotify);
  machine().applications().setTrack(spotify, Track{.name = "Song", .artist = "Someone"});
  machine().applications().setPlayerState(spotify, playing);
  start();
  ASSERT_TRUE(runUntilShown("Song"));
  EXPECT_EQ(std::get<NowPlayingTrack>(nowPlaying().state().get()).artist, "Someone");
  EXPECT_THAT(machine().appleEvents().timeouts(), Each(120));
  EXPECT_EQ(machine().appleEvents().prompts(), 0);
  EXPECT_THAT(machine().applications().commands(spotify), IsEmpty());
  machine().applications().setPlayerState(spotify, paused);
  poke();
  ASSERT_TRUE(runUntilShown("Song (paused)"));
}

TEST_P(NowPlayingTest, MusicGivesItsArtworkItself) {
  setTarget("music");
  launch(music);
  consent(music);
  machine().applications().setTrack(
      music, Track{.name = "Song", .artwork = machine().imageDecoder().decode(artwork(6))});
  machine().applications().setPlayerState(music, playing);
  start();
  ASSERT_TRUE(runUntilShown("Song 6"));
  EXPECT_THAT(requests(), IsEmpty());
}

TEST_P(NowPlayingTest, WhatAPlayersDictionaryLacksIsNotRead) {
  setTarget("spotify");
  launch(spotify);
  consent(spotify);
  machine().applications().setTrack(
      spotify, Track{.name = "Song",
                     .artist = "Someone",
                     .unsupported = {"artist", "artworks", "artworkUrl", "playerState"}});
  start();
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  EXPECT_EQ(std::get<NowPlayingTrack>(nowPlaying().state().get()).artist, "");
  const std::vector<std::string> reads = machine().appleEvents().reads();
  EXPECT_THAT(reads, Contains("name"));
  EXPECT_THAT(reads, Not(Contains("artist")));
  EXPECT_THAT(reads, Not(Contains("artworks")));
  EXPECT_THAT(reads, Not(Contains("artworkUrl")));
  EXPECT_THAT(reads, Not(Contains("playerState")));
}

TEST_P(NowPlayingTest, AScriptablePlayerWithoutATrackIsIdle) {
  setTarget("spotify");
  launch(spotify);
  consent(spotify);
  machine().applications().setTrack(spotify, Track{.name = "Song"});
  startWarm();
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  machine().applications().setTrack(spotify, Track{.name = ""});
  poke();
  ASSERT_TRUE(runUntilShown("idle"));
  machine().applications().setTrack(spotify, Track{.name = "Song"});
  poke();
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  machine().applications().setTrack(spotify, std::nullopt);
  poke();
  ASSERT_TRUE(runUntilShown("idle"));
}

TEST_P(NowPlayingTest, AScriptablePlayerThatCannotBeAskedIsIdle) {
  setTarget("spotify");
  launch(spotify);
  consent(spotify);
  machine().applications().setTrack(spotify, Track{.name = "Song"});
  startWarm();
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  machine().appleEvents().setCanMakeObjects(false);
  poke();
  ASSERT_TRUE(runUntilShown("idle"));
}

TEST_P(NowPlayingTest, APlayerThatHangsHoldsUpNobodyElse) {
  setTarget("spotify");
  launch(spotify);
  launch(vlc);
  consent(spotify);
  machine().applications().setTrack(spotify, Track{.name = "Song"});
  machine().applications().setManner(spotify, SimulatedApplications::Manner::neverAnswers);
  start();
  ASSERT_TRUE(runUntil([&] { return machine().appleEvents().reads().size() == 1; }));
  for (int i = 0; i < 20; ++i) poke();
  setTarget("vlc");
  poke();
  ASSERT_TRUE(runUntilShown("[VLC]"));
  // The polls that came meanwhile are not made up for, and none of them has a say any more.
  setTarget("spotify");
  machine().applications().setManner(spotify, SimulatedApplications::Manner::answers);
  poke();
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  EXPECT_THAT(history(), ElementsAre("[VLC]", "Song (paused)"));
}

TEST_P(NowPlayingTest, PollsOfAPlayerThatHangsDoNotPileUp) {
  setTarget("spotify");
  launch(spotify);
  consent(spotify);
  machine().applications().setTrack(spotify, Track{.name = "Song"});
  machine().applications().setManner(spotify, SimulatedApplications::Manner::neverAnswers);
  start();
  ASSERT_TRUE(runUntil([&] { return machine().appleEvents().reads().size() == 1; }));
  for (int i = 0; i < 20; ++i) {
    const int before = machine().mediaRemote().calls(SimulatedMediaRemote::infoFunction);
    poke();
    ASSERT_TRUE(runUntil([&] {
      return machine().mediaRemote().calls(SimulatedMediaRemote::infoFunction) > before;
    }));
  }
  machine().applications().setManner(spotify, SimulatedApplications::Manner::answers);
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  pass(100ms);
  const std::vector<std::string> reads = machine().appleEvents().reads();
  EXPECT_LT(std::ranges::count(reads, "currentTrack"), 6);
}

TEST_P(NowPlayingTest, WithoutAKnownConsentItIsLookedUpWithoutAPrompt) {
  setTarget("music");
  launch(music);
  machine().applications().setTrack(music, Track{.name = "Song"});
  start();
  ASSERT_TRUE(runUntilShown("[Apple Music]"));
  EXPECT_TRUE(logs(
      "now-playing fallback skipped for com.apple.Music: Automation not granted (cached: nil)"));
  ASSERT_TRUE(runUntil([] { return AutomationPermission::cachedStatus(music).has_value(); }));
  poke();
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  EXPECT_THAT(machine().appleEvents().queries(),
              ElementsAre(SimulatedAppleEvents::Query{.bundleID = music}));
  EXPECT_EQ(machine().appleEvents().prompts(), 0);
}

TEST_P(NowPlayingTest, APlayerThatHasNotConsentedIsNotAskedAndNobodyIsPrompted) {
  setTarget("spotify");
  launch(spotify);
  for (const auto& [status, name] :
       {std::pair{SimulatedAppleEvents::notPermitted, "denied"},
        std::pair{SimulatedAppleEvents::wouldRequireConsent, "notDetermined"}}) {
    AutomationPermission::invalidateAll();
    consent(spotify, status);
    const std::size_t queries = machine().appleEvents().queries().size();
    start();
    const std::string line = std::string(
                                 "now-playing fallback skipped for com.spotify.client: "
                                 "Automation not granted (cached: ") +
                             name + ")";
    ASSERT_TRUE(runUntil([&] { return logs(line); }));
    ASSERT_TRUE(runUntilShown("[Spotify]"));
    EXPECT_EQ(machine().appleEvents().queries().size(), queries);
  }
  EXPECT_THAT(machine().appleEvents().reads(), IsEmpty());
  EXPECT_EQ(machine().appleEvents().prompts(), 0);
  const std::vector<std::string> infos = machine().log().messages(LogLevel::info);
  EXPECT_THAT(infos, Contains(testing::StartsWith("now-playing fallback skipped")));
}

TEST_P(NowPlayingTest, TidalShowsItsTrackInItsWindow) {
  setCatalogue({{.title = "Song", .width = 7}});
  setTarget("tidal");
  const ProcessIdentifier process = launch(tidal);
  machine().applications().setWindowTitles(
      process, {"", "TIDAL", "Song - Artist - TIDAL", "Other - Artist"});
  start();
  ASSERT_TRUE(runUntilShown("Song 7 (paused)"));
  EXPECT_THAT(history(), ElementsAre("Song 7 (paused)"));
  EXPECT_TRUE(logs("TIDAL window title: Song - Artist - TIDAL"));
  EXPECT_THAT(machine().appleEvents().queries(), IsEmpty());
}

TEST_P(NowPlayingTest, OneTidalPollWithoutATrackIsBridged) {
  setTarget("tidal");
  const ProcessIdentifier process = launch(tidal);
  machine().applications().setWindowTitles(process, {"Song - Artist"});
  startWarm();
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  machine().applications().setWindowTitles(process, {"TIDAL"});
  pokeTidal();
  pokeTidal();
  ASSERT_TRUE(runUntilShown("[TIDAL]"));
  machine().applications().setWindowTitles(process, {"Song - Artist"});
  poke();
  ASSERT_TRUE(runUntilShown("Song (paused)"));
  machine().applications().setWindowTitles(process, {});
  pokeTidal();
  machine().applications().setWindowTitles(process, {"Other - Artist"});
  pokeTidal();
  ASSERT_TRUE(runUntilShown("Other (paused)"));
  EXPECT_THAT(history(),
              ElementsAre("Song (paused)", "[TIDAL]", "Song (paused)", "Other (paused)"));
}

TEST_P(NowPlayingTest, TidalWithoutATrackRunsWithoutInformation) {
  setTarget("tidal");
  launch(tidal);
  start();
  ASSERT_TRUE(runUntilShown("[TIDAL]"));
}

TEST_P(NowPlayingTest, InTheWarmupATrackStaysAndThenItGoes) {
  setTarget("vlc");
  const ProcessIdentifier process = launch(vlc);
  startWarm();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntilShown("Song"));
  start();
  machine().applications().quit(process);
  poke();
  ASSERT_TRUE(runUntil([&] { return logs("hero downgrade dropped during adapter warm-up"); }));
  EXPECT_EQ(shown(), "Song");
  ASSERT_TRUE(runUntilShown("idle"));
  EXPECT_THAT(tracks(), ElementsAre("Song"));
}

TEST_P(NowPlayingTest, ATrackMayTakeATracksPlaceInTheWarmup) {
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "One");
  ASSERT_TRUE(runUntilShown("One"));
  stream(vlc, "Two");
  ASSERT_TRUE(runUntilShown("Two"));
}

TEST_P(NowPlayingTest, ItPollsEveryTwoSecondsByItself) {
  setTarget("tidal");
  const ProcessIdentifier process = launch(tidal);
  start();
  ASSERT_TRUE(runUntilShown("[TIDAL]"));
  machine().applications().setWindowTitles(process, {"Song - Artist"});
  ASSERT_TRUE(runUntilShown("Song (paused)"));
}

TEST_P(NowPlayingTest, OnceStoppedItTellsNothingNew) {
  setTarget("vlc");
  const ProcessIdentifier process = launch(vlc);
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntilShown("Song"));
  nowPlaying().stopPolling();
  EXPECT_FALSE(machine().mediaRemote().isRegistered());
  ASSERT_TRUE(runUntil([&] { return machine().childProcesses().running().empty(); }));
  setSystem(process, "Other");
  machine().applications().quit(process);
  // What is queued by now has run when a whole period has passed.
  pass(2600ms);
  EXPECT_THAT(tracks(), ElementsAre("Song"));
  EXPECT_EQ(shown(), "Song");
  start();
  ASSERT_TRUE(runUntilShown("idle"));
}

TEST_P(NowPlayingTest, WhatIsUnchangedIsNotPublishedAgain) {
  setCatalogue({{.title = "Song", .width = 7}});
  setTarget("vlc");
  launch(vlc);
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntilShown("Song 7"));
  for (int elapsed = 1; elapsed <= 3; ++elapsed) {
    stream(vlc, "Song", ",\"elapsedTime\":" + std::to_string(elapsed));
  }
  stream(vlc, "Last");
  ASSERT_TRUE(runUntilShown("Last"));
  EXPECT_THAT(tracks(), ElementsAre("Song", "Song 7", "Last"));
}

TEST_P(NowPlayingTest, AWebPlayersTrackIsThatOfTheBrowserWithItsTab) {
  setTarget("youtube-web");
  browsers().launch(chrome, "Google Chrome");
  start();
  stream(chrome, "Video");
  ASSERT_TRUE(runUntil([&] { return nowPlaying().mediaOwnerTitle() == "Video"; }));
  EXPECT_EQ(shown(), "idle");
  browsers().setTabs(chrome, {{watchPage, "Any page"}});
  run([] { WebTabDetection::refreshMatches(); });
  poke();
  ASSERT_TRUE(runUntilShown("Video"));
  stream("com.google.Chrome.helper", "Helped");
  ASSERT_TRUE(runUntilShown("Helped"));
  stream("com.apple.WebKit.GPU", "Parent",
         R"(,"parentApplicationBundleIdentifier":"com.google.Chrome")");
  ASSERT_TRUE(runUntilShown("Parent"));
  stream("com.google.ChromeOther", "Strange");
  stream(safari, "Another");
  ASSERT_TRUE(runUntil([&] { return nowPlaying().mediaOwnerTitle() == "Another"; }));
  ASSERT_TRUE(runUntilShown("[YouTube]"));
  EXPECT_THAT(history(), Not(Contains("Strange")));
}

TEST_P(NowPlayingTest, AnotherTabsTrackIsNotTheWebPlayers) {
  setTarget("youtube-web");
  browsers().launch(chrome, "Google Chrome");
  browsers().setTabs(chrome, {{watchPage, "My video - YouTube"}, {soundCloudPage, "Their song"}});
  run([] { WebTabDetection::refreshMatches(); });
  startWarm();
  stream(chrome, "My video");
  ASSERT_TRUE(runUntilShown("My video"));
  stream(chrome, "Their song");
  ASSERT_TRUE(runUntilShown("[YouTube]"));
  stream(chrome, "Unknown to both");
  ASSERT_TRUE(runUntilShown("Unknown to both"));
}

TEST_P(NowPlayingTest, TheSystemsOwnerIsAWebPlayerByTheSameRule) {
  setTarget("youtube-web");
  const ProcessIdentifier process = browsers().launch(chrome, "Google Chrome");
  browsers().setTabs(chrome, {{watchPage, "My video - YouTube"}, {soundCloudPage, "Their song"}});
  run([] { WebTabDetection::refreshMatches(); });
  setSystem(process, "My video");
  startWarm();
  ASSERT_TRUE(runUntilShown("My video"));
  setSystem(process, "Their song");
  ASSERT_TRUE(runUntilShown("[YouTube]"));
}

TEST_P(NowPlayingTest, TheSessionsOwnerIsTheAdapters) {
  EXPECT_EQ(nowPlaying().mediaOwnerBundleID(), std::nullopt);
  EXPECT_EQ(nowPlaying().mediaOwnerTitle(), std::nullopt);
  EXPECT_FALSE(nowPlaying().mediaOwnerIsPlaying());
  start();
  stream(vlc, "Song");
  ASSERT_TRUE(runUntil([&] { return nowPlaying().mediaOwnerTitle() == "Song"; }));
  EXPECT_EQ(nowPlaying().mediaOwnerBundleID(), vlc);
  EXPECT_TRUE(nowPlaying().mediaOwnerIsPlaying());
  stream("com.google.Chrome.helper", "Video",
         R"(,"parentApplicationBundleIdentifier":"com.google.Chrome","playing":false)");
  ASSERT_TRUE(runUntil([&] { return nowPlaying().mediaOwnerTitle() == "Video"; }));
  EXPECT_EQ(nowPlaying().mediaOwnerBundleID(), chrome);
  EXPECT_FALSE(nowPlaying().mediaOwnerIsPlaying());
  streamNothing();
  ASSERT_TRUE(runUntil([&] { return !nowPlaying().mediaOwnerTitle(); }));
  EXPECT_EQ(nowPlaying().mediaOwnerBundleID(), std::nullopt);
}

}  // namespace talmo::test
