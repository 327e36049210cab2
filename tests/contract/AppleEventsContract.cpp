#include "tests/contract/AppleEventsContract.h"

#include <chrono>
#include <stdexcept>

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Commands = std::vector<std::string>;

constexpr std::int32_t granted = 0;
constexpr std::int32_t notRunning = -600;
constexpr long twoSeconds = 120;

}  // namespace

std::unique_ptr<ScriptingObject> AppleEventsContract::object(const std::string& bundleID) {
  std::unique_ptr<ScriptingObject> made = world_->appleEvents().application(bundleID);
  if (!made) throw std::runtime_error("no scripting object for " + bundleID);
  made->setTimeout(twoSeconds);
  return made;
}

TEST_P(AppleEventsContract, APlayerThatRunsHasConsented) {
  world().startPlayer(spotify);
  EXPECT_EQ(consent(spotify), granted);
}

TEST_P(AppleEventsContract, APlayerThatDoesNotRunIsNotFound) {
  world().startPlayer(rhythmbox);
  EXPECT_EQ(consent(spotify), notRunning);
  world().startPlayer(spotify);
  EXPECT_EQ(consent(spotify), granted);
  world().quitPlayer(spotify);
  EXPECT_EQ(consent(spotify), notRunning);
  EXPECT_EQ(consent(rhythmbox), granted);
}

TEST_P(AppleEventsContract, AnUnknownApplicationIsNotFound) {
  EXPECT_EQ(consent(unknown), notRunning);
}

TEST_P(AppleEventsContract, NoTargetCanBeMadeOfTheEmptyIdentifier) {
  EXPECT_EQ(consent(""), std::nullopt);
}

TEST_P(AppleEventsContract, AnUnknownApplicationHasNoScriptingObject) {
  EXPECT_EQ(world().appleEvents().application(unknown), nullptr);
  EXPECT_EQ(world().appleEvents().application(""), nullptr);
}

TEST_P(AppleEventsContract, APlayerRespondsToTheThreeCommandsOnly) {
  world().startPlayer(spotify);
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  EXPECT_TRUE(player->respondsTo("playpause"));
  EXPECT_TRUE(player->respondsTo("nextTrack"));
  EXPECT_TRUE(player->respondsTo("previousTrack"));
  EXPECT_FALSE(player->respondsTo("quit"));
  EXPECT_FALSE(player->respondsTo("PlayPause"));
  EXPECT_FALSE(player->respondsTo(""));
}

TEST_P(AppleEventsContract, EachCommandReachesItsPlayerAndNobodyElse) {
  world().startPlayer(spotify);
  world().startPlayer(rhythmbox);
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  EXPECT_EQ(player->lastError(), std::nullopt);
  for (const char* command : {"playpause", "nextTrack", "previousTrack", "playpause"}) {
    player->send(command);
    EXPECT_EQ(player->lastError(), std::nullopt) << command;
  }
  EXPECT_EQ(world().received(spotify),
            (Commands{"playpause", "nextTrack", "previousTrack", "playpause"}));
  object(rhythmbox)->send("nextTrack");
  EXPECT_EQ(world().received(rhythmbox), Commands{"nextTrack"});
  EXPECT_EQ(world().received(spotify).size(), 4U);
}

TEST_P(AppleEventsContract, APlayerThatNeverAnswersCostsTheTimeout) {
  world().startPlayer(spotify);
  world().setManner(spotify, Manner::neverAnswers);
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  const Uptime start = world().now();
  player->send("playpause");
  const Duration taken = world().now() - start;
  EXPECT_GE(taken, 2s);
  EXPECT_LT(taken, 4s);
  EXPECT_NE(player->lastError().value_or(""), "");
}

TEST_P(AppleEventsContract, TheTimeoutIsTheOneThatWasSet) {
  world().startPlayer(spotify);
  world().setManner(spotify, Manner::neverAnswers);
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  player->setTimeout(30);
  const Uptime start = world().now();
  player->send("playpause");
  const Duration taken = world().now() - start;
  EXPECT_GE(taken, 500ms);
  EXPECT_LT(taken, 1800ms);
}

TEST_P(AppleEventsContract, ACommandReachesOthersAfterOneThatWasNotAnswered) {
  world().startPlayer(spotify);
  world().startPlayer(rhythmbox);
  world().setManner(spotify, Manner::neverAnswers);
  object(spotify)->send("playpause");
  const std::unique_ptr<ScriptingObject> other = object(rhythmbox);
  other->send("playpause");
  EXPECT_EQ(other->lastError(), std::nullopt);
  EXPECT_EQ(world().received(rhythmbox), Commands{"playpause"});
}

TEST_P(AppleEventsContract, APlayerThatFailsGivesAnErrorAndASuccessClearsIt) {
  world().startPlayer(spotify);
  world().setManner(spotify, Manner::fails);
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  player->send("nextTrack");
  EXPECT_NE(player->lastError().value_or(""), "");
  EXPECT_EQ(world().received(spotify), Commands{});
  world().setManner(spotify, Manner::answers);
  player->send("nextTrack");
  EXPECT_EQ(player->lastError(), std::nullopt);
  EXPECT_EQ(world().received(spotify), Commands{"nextTrack"});
}

TEST_P(AppleEventsContract, APlayerThatQuitBeforeTheCommandGivesAnError) {
  world().startPlayer(spotify);
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  player->send("playpause");
  ASSERT_EQ(player->lastError(), std::nullopt);
  world().quitPlayer(spotify);
  player->send("playpause");
  EXPECT_NE(player->lastError().value_or(""), "");
}

}  // namespace talmo::test
