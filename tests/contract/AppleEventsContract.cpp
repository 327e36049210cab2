#include "tests/contract/AppleEventsContract.h"

#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <variant>

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

std::shared_ptr<ScriptingObject> AppleEventsContract::currentTrack(ScriptingObject& player) {
  const std::optional<ScriptingValue> value = player.read("currentTrack");
  const auto* track = value ? std::get_if<std::shared_ptr<ScriptingObject>>(&*value) : nullptr;
  if (track == nullptr) throw std::runtime_error("no current track");
  return *track;
}

std::optional<std::string> AppleEventsContract::text(ScriptingObject& object,
                                                     const char* property) {
  const std::optional<ScriptingValue> value = object.read(property);
  if (!value || !std::holds_alternative<std::string>(*value)) return std::nullopt;
  return std::get<std::string>(*value);
}

std::uint32_t AppleEventsContract::code(ScriptingObject& player) {
  return std::get<std::uint32_t>(player.read("playerState").value());
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

TEST_P(AppleEventsContract, APlayerRespondsToItsCommandsAndPropertiesOnly) {
  world().startPlayer(spotify);
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  EXPECT_TRUE(player->respondsTo("playpause"));
  EXPECT_TRUE(player->respondsTo("nextTrack"));
  EXPECT_TRUE(player->respondsTo("previousTrack"));
  EXPECT_TRUE(player->respondsTo("currentTrack"));
  EXPECT_TRUE(player->respondsTo("playerState"));
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

TEST_P(AppleEventsContract, ATrackHasANameAnArtistAndAnArtwork) {
  world().startPlayer(spotify);
  world().setTrack(spotify, {.name = "Caf\u00e9", .artist = "B", .artworkUrl = "https://c/d"});
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  const std::shared_ptr<ScriptingObject> track = currentTrack(*player);
  EXPECT_EQ(player->lastError(), std::nullopt);
  for (const char* property : {"name", "artist", "artworkUrl"}) {
    EXPECT_TRUE(track->respondsTo(property)) << property;
  }
  EXPECT_FALSE(track->respondsTo("playerState"));
  EXPECT_FALSE(track->respondsTo("playpause"));
  EXPECT_EQ(text(*track, "name"), "Caf\u00e9");
  EXPECT_EQ(text(*track, "artist"), "B");
  EXPECT_EQ(text(*track, "artworkUrl"), "https://c/d");
  EXPECT_EQ(track->lastError(), std::nullopt);
}

TEST_P(AppleEventsContract, ATrackIsReadAnewFromThePlayer) {
  world().startPlayer(spotify);
  world().setTrack(spotify, {.name = "One"});
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  EXPECT_EQ(text(*currentTrack(*player), "name"), "One");
  world().setTrack(spotify, {.name = "Two"});
  EXPECT_EQ(text(*currentTrack(*player), "name"), "Two");
}

TEST_P(AppleEventsContract, WhatATrackDoesNotHaveIsNothingAndNoError) {
  world().startPlayer(spotify);
  world().setTrack(spotify, {.name = "A"});
  const std::shared_ptr<ScriptingObject> track = currentTrack(*object(spotify));
  EXPECT_EQ(track->read("artist"), std::nullopt);
  EXPECT_EQ(track->read("artworkUrl"), std::nullopt);
  EXPECT_EQ(track->lastError(), std::nullopt);
}

TEST_P(AppleEventsContract, APlayerWithoutATrackHasNone) {
  world().startPlayer(spotify);
  world().setTrack(spotify, {});
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  EXPECT_EQ(player->read("currentTrack"), std::nullopt);
  EXPECT_EQ(player->lastError(), std::nullopt);
}

TEST_P(AppleEventsContract, ThePlayerStateIsAFourCharacterCode) {
  world().startPlayer(spotify);
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  world().setPlayerState(spotify, PlayerState::playing);
  EXPECT_EQ(code(*player), 0x6B505350);  // 'kPSP'
  world().setPlayerState(spotify, PlayerState::paused);
  EXPECT_EQ(code(*player), 0x6B505370);  // 'kPSp'
  world().setPlayerState(spotify, PlayerState::stopped);
  EXPECT_EQ(code(*player), 0x6B505353);  // 'kPSS'
}

TEST_P(AppleEventsContract, WhatIsNoPropertyIsAnErrorAndARightReadClearsIt) {
  world().startPlayer(spotify);
  world().setTrack(spotify, {.name = "A"});
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  EXPECT_EQ(player->read("name"), std::nullopt);
  EXPECT_NE(player->lastError().value_or(""), "");
  const std::shared_ptr<ScriptingObject> track = currentTrack(*player);
  EXPECT_EQ(player->lastError(), std::nullopt);
  EXPECT_EQ(track->read("currentTrack"), std::nullopt);
  EXPECT_NE(track->lastError().value_or(""), "");
  EXPECT_EQ(text(*track, "name"), "A");
  EXPECT_EQ(track->lastError(), std::nullopt);
}

TEST_P(AppleEventsContract, AReadFromAPlayerThatNeverAnswersCostsTheTimeout) {
  world().startPlayer(spotify);
  world().setManner(spotify, Manner::neverAnswers);
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  const Uptime start = world().now();
  EXPECT_EQ(player->read("playerState"), std::nullopt);
  const Duration taken = world().now() - start;
  EXPECT_GE(taken, 2s);
  EXPECT_LT(taken, 4s);
  EXPECT_NE(player->lastError().value_or(""), "");
}

TEST_P(AppleEventsContract, NothingIsReadFromAPlayerThatQuit) {
  world().startPlayer(spotify);
  world().setTrack(spotify, {.name = "A"});
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  ASSERT_NE(player->read("currentTrack"), std::nullopt);
  world().quitPlayer(spotify);
  EXPECT_EQ(player->read("playerState"), std::nullopt);
  EXPECT_NE(player->lastError().value_or(""), "");
}

TEST_P(AppleEventsContract, ReadingSendsNoCommand) {
  world().startPlayer(spotify);
  world().setTrack(spotify, {.name = "A"});
  const std::unique_ptr<ScriptingObject> player = object(spotify);
  EXPECT_EQ(text(*currentTrack(*player), "name"), "A");
  player->send("nextTrack");
  EXPECT_EQ(world().received(spotify), Commands{"nextTrack"});
}

}  // namespace talmo::test
