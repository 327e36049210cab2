#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "permissions/AutomationPermission.h"
#include "players/ControllerFactory.h"
#include "players/KeystrokeController.h"
#include "players/ScriptingBridgeController.h"
#include "players/TargetAppRegistry.h"
#include "tests/component/SimulatedWorld.h"
#include "web/WebPlayerController.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Manner = SimulatedApplications::Manner;

class NativeControllersTest : public testing::Test {
 protected:
  static constexpr const char* spotify = "com.spotify.client";

  std::shared_ptr<MusicAppController> controller(const char* id) {
    return ControllerFactory::controller(*TargetAppRegistry::app(id));
  }
  /// Runs a command where commands run: on a background queue.
  void run(const std::function<void()>& command) {
    queue_->async(command);
    world_.time().run(10s);
  }
  void launchSpotify() {
    machine_.applications().install({spotify, "Spotify"});
    machine_.applications().launch(spotify);
  }
  /// Has the consent cache know this status.
  void know(std::int32_t status) {
    machine_.appleEvents().setConsent(spotify, status);
    AutomationPermission::refreshStatus(spotify, {});
    world_.time().runUntilIdle();
    ASSERT_TRUE(AutomationPermission::cachedStatus(spotify));
  }

  test::SimulatedWorld world_;
  SimulatedPlatform& machine_ = world_.machine();
  const std::shared_ptr<Queue> queue_ =
      machine_.dispatch().makeSerialQueue("commands", QualityOfService::unspecified);
};

TEST_F(NativeControllersTest, EachControlMethodHasItsController) {
  EXPECT_TRUE(std::dynamic_pointer_cast<KeystrokeController>(controller("vlc")));
  EXPECT_EQ(controller("spotify")->targetApp().id, "spotify");
  EXPECT_TRUE(std::dynamic_pointer_cast<ScriptingBridgeController>(controller("spotify")));
  EXPECT_TRUE(std::dynamic_pointer_cast<WebPlayerController>(controller("youtube-web")));
  EXPECT_EQ(controller("youtube-web")->targetApp().id, "youtube-web");
}

TEST_F(NativeControllersTest, AScriptablePlayerGetsItsCommandsWithinTwoSeconds) {
  launchSpotify();
  const auto spotifyController = controller("spotify");
  run([&] {
    spotifyController->playPause();
    spotifyController->nextTrack();
    spotifyController->previousTrack();
  });
  EXPECT_THAT(machine_.applications().commands(spotify),
              ElementsAre("playpause", "nextTrack", "previousTrack"));
  EXPECT_THAT(machine_.appleEvents().timeouts(), ElementsAre(120, 120, 120));
  EXPECT_THAT(
      machine_.log().messages("scripting-bridge"),
      ElementsAre("Sent command to Spotify", "Sent command to Spotify", "Sent command to Spotify"));
}

TEST_F(NativeControllersTest, AScriptablePlayerThatDoesNotRunIgnoresTheKey) {
  machine_.applications().install({spotify, "Spotify"});
  run([&] { controller("spotify")->nextTrack(); });
  EXPECT_THAT(machine_.log().messages("scripting-bridge"),
              ElementsAre("Spotify not running; ignoring key"));
  EXPECT_THAT(machine_.appleEvents().timeouts(), IsEmpty());
}

TEST_F(NativeControllersTest, AKnownDenialPreventsAnyAppleEventAndIsKept) {
  launchSpotify();
  know(SimulatedAppleEvents::notPermitted);
  run([&] { controller("spotify")->playPause(); });

  EXPECT_THAT(machine_.appleEvents().timeouts(), IsEmpty());
  EXPECT_THAT(machine_.log().messages("scripting-bridge"),
              ElementsAre("Automation denied for Spotify; skipping send"));
  EXPECT_EQ(AutomationPermission::cachedStatus(spotify), AutomationStatus::denied);
}

TEST_F(NativeControllersTest, AnOpenConsentLetsTheSendAskAndIsForgottenAfterwards) {
  launchSpotify();
  know(SimulatedAppleEvents::wouldRequireConsent);
  ASSERT_EQ(AutomationPermission::cachedStatus(spotify), AutomationStatus::notDetermined);
  run([&] { controller("spotify")->playPause(); });

  EXPECT_EQ(machine_.appleEvents().prompts(), 1);
  EXPECT_THAT(machine_.applications().commands(spotify), ElementsAre("playpause"));
  EXPECT_EQ(AutomationPermission::cachedStatus(spotify), std::nullopt);
}

TEST_F(NativeControllersTest, AnUnknownConsentLetsTheSendGoAhead) {
  launchSpotify();
  machine_.appleEvents().setConsent(spotify, SimulatedAppleEvents::wouldRequireConsent);
  machine_.appleEvents().setAnswer(spotify, SimulatedAppleEvents::notPermitted);
  run([&] { controller("spotify")->playPause(); });

  EXPECT_EQ(machine_.appleEvents().prompts(), 1);
  EXPECT_THAT(machine_.applications().commands(spotify), IsEmpty());
  EXPECT_THAT(machine_.log().messages(LogLevel::notice),
              ElementsAre("Apple Event to Spotify failed: not authorized to send Apple events"));
}

TEST_F(NativeControllersTest, AGrantedConsentStaysCachedAfterASend) {
  launchSpotify();
  know(SimulatedAppleEvents::granted);
  run([&] { controller("spotify")->playPause(); });
  EXPECT_EQ(AutomationPermission::cachedStatus(spotify), AutomationStatus::granted);
}

TEST_F(NativeControllersTest, APlayerThatNeverAnswersCostsTwoSecondsAndItsCommand) {
  launchSpotify();
  machine_.applications().setManner(spotify, Manner::neverAnswers);
  Duration taken{};
  run([&] {
    const Uptime before = machine_.dispatch().uptime();
    controller("spotify")->playPause();
    taken = machine_.dispatch().uptime() - before;
  });
  EXPECT_EQ(taken, 2s);
  EXPECT_THAT(machine_.log().messages("scripting-bridge"),
              ElementsAre("Apple Event to Spotify failed: the Apple event timed out"));
}

TEST_F(NativeControllersTest, APlayerThatDoesNotKnowTheCommandGetsNothing) {
  machine_.applications().install({.bundleID = spotify, .name = "Spotify", .isScriptable = false});
  machine_.applications().launch(spotify);
  run([&] { controller("spotify")->playPause(); });
  EXPECT_THAT(machine_.appleEvents().timeouts(), IsEmpty());
  EXPECT_THAT(machine_.log().messages("scripting-bridge"), ElementsAre("Sent command to Spotify"));
}

TEST_F(NativeControllersTest, AScriptingObjectThatCannotBeMadeIsLogged) {
  launchSpotify();
  machine_.appleEvents().setCanMakeObjects(false);
  run([&] { controller("spotify")->playPause(); });
  EXPECT_THAT(machine_.log().messages("scripting-bridge"),
              ElementsAre("SBApplication init failed for Spotify"));
}

TEST_F(NativeControllersTest, ANextOfYouTubeMusicIsNWithShiftDownAndUp) {
  constexpr const char* youTubeMusic = "com.github.th-ch.youtube-music";
  machine_.applications().install({youTubeMusic, "YouTube Music"});
  const ProcessIdentifier process = machine_.applications().launch(youTubeMusic);
  run([&] { controller("youtube-music")->nextTrack(); });
  EXPECT_THAT(machine_.applications().keyboardEvents(process),
              ElementsAre(KeyboardEvent{45, true, 0x20000}, KeyboardEvent{45, false, 0x20000}));
  EXPECT_THAT(machine_.log().messages("keystrokes"), IsEmpty());
}

TEST_F(NativeControllersTest, AKeyStrokePlayerGetsEachOfItsStrokes) {
  constexpr const char* vlc = "org.videolan.vlc";
  const ProcessIdentifier process = machine_.applications().launch(vlc);
  const auto vlcController = controller("vlc");
  run([&] {
    vlcController->playPause();
    vlcController->nextTrack();
    vlcController->previousTrack();
  });
  EXPECT_THAT(machine_.applications().keyboardEvents(process),
              ElementsAre(KeyboardEvent{49, true, 0}, KeyboardEvent{49, false, 0},
                          KeyboardEvent{124, true, 0x100000}, KeyboardEvent{124, false, 0x100000},
                          KeyboardEvent{123, true, 0x100000}, KeyboardEvent{123, false, 0x100000}));
}

TEST_F(NativeControllersTest, AKeyStrokePlayerThatQuitBetweenTwoKeysGetsNothing) {
  constexpr const char* vlc = "org.videolan.vlc";
  const ProcessIdentifier process = machine_.applications().launch(vlc);
  const auto vlcController = controller("vlc");
  run([&] { vlcController->playPause(); });
  machine_.applications().quit(process);
  run([&] { vlcController->playPause(); });

  EXPECT_EQ(machine_.applications().keyboardEvents(process).size(), 2U);
  EXPECT_THAT(machine_.log().messages("keystrokes"), ElementsAre("VLC not running; ignoring key"));
}

TEST_F(NativeControllersTest, StrokesGoToTheFirstInstanceOnly) {
  constexpr const char* vlc = "org.videolan.vlc";
  const ProcessIdentifier first = machine_.applications().launch(vlc);
  const ProcessIdentifier second = machine_.applications().launch(vlc);
  run([&] { controller("vlc")->playPause(); });
  EXPECT_EQ(machine_.applications().keyboardEvents(first).size(), 2U);
  EXPECT_THAT(machine_.applications().keyboardEvents(second), IsEmpty());
}

}  // namespace
}  // namespace talmo
