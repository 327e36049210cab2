#include "tests/contract/MediaRemoteContract.h"

#include <set>
#include <variant>

namespace talmo::test {
namespace {

constexpr std::array<const char*, 5> functions{
    "MRMediaRemoteGetNowPlayingInfo",
    "MRMediaRemoteGetNowPlayingApplicationPID",
    "MRMediaRemoteGetNowPlayingApplicationIsPlaying",
    "MRMediaRemoteRegisterForNowPlayingNotifications",
    "MRMediaRemoteUnregisterForNowPlayingNotifications",
};

constexpr std::array<const char*, 3> constants{
    "kMRMediaRemoteNowPlayingInfoDidChangeNotification",
    "kMRMediaRemoteNowPlayingApplicationDidChangeNotification",
    "kMRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification",
};
constexpr std::size_t infoNotice = 0;
constexpr std::size_t applicationNotice = 1;
constexpr std::size_t isPlayingNotice = 2;

template <class Value>
std::optional<Value> value(const std::optional<MediaRemoteInfo>& info, const std::string& key) {
  if (!info) return std::nullopt;
  const auto found = info->find("kMRMediaRemoteNowPlayingInfo" + key);
  if (found == info->end() || !std::holds_alternative<Value>(found->second)) return std::nullopt;
  return std::get<Value>(found->second);
}

}  // namespace

std::string MediaRemoteContract::Answers::title() const {
  return value<std::string>(info, "Title").value_or("");
}

double MediaRemoteContract::Answers::rate() const {
  return value<double>(info, "PlaybackRate").value_or(-1);
}

void MediaRemoteContract::SetUp() {
  for (const char* name : functions) EXPECT_TRUE(mediaRemote().hasFunction(name)) << name;
}

MediaRemoteContract::Answers MediaRemoteContract::ask() {
  Answers answers;
  std::atomic<int> count = 0;
  mediaRemote().getNowPlayingApplicationPID(queue_, [&](ProcessIdentifier process) {
    answers.process = process;
    ++count;
  });
  mediaRemote().getNowPlayingInfo(queue_, [&](const std::optional<MediaRemoteInfo>& info) {
    answers.info = info;
    ++count;
  });
  mediaRemote().getNowPlayingApplicationIsPlaying(queue_, [&](bool isPlaying) {
    answers.isPlaying = isPlaying;
    ++count;
  });
  EXPECT_TRUE(runUntil([&] { return count == 3; }));
  return answers;
}

bool MediaRemoteContract::waitFor(const std::function<bool(const Answers&)>& isExpected) {
  const Uptime deadline = world_->dispatch().uptime() + std::chrono::seconds(10);
  while (!isExpected(ask())) {
    if (world_->dispatch().uptime() > deadline) return false;
    world_->runUntil([] { return false; }, std::chrono::milliseconds(2));
  }
  return true;
}

void MediaRemoteContract::observe(Counts& counts) {
  for (std::size_t index = 0; index < constants.size(); ++index) {
    const std::optional<std::string> name = mediaRemote().stringConstant(constants[index]);
    ASSERT_TRUE(name);
    world_->notifications().addObserver(*name, [&counts, index] { ++counts[index]; });
  }
}

TEST_P(MediaRemoteContract, HasItsFunctionsAndConstantsAndNoOthers) {
  EXPECT_FALSE(mediaRemote().hasFunction("MRMediaRemoteSendCommand"));
  EXPECT_FALSE(mediaRemote().hasFunction(""));
  std::set<std::string> names;
  for (const char* constant : constants) {
    const std::optional<std::string> name = mediaRemote().stringConstant(constant);
    ASSERT_TRUE(name) << constant;
    EXPECT_TRUE(names.insert(*name).second) << *name;
    EXPECT_NE(*name, "");
  }
  EXPECT_EQ(mediaRemote().stringConstant("kMRMediaRemoteNowPlayingInfoTitle2"), std::nullopt);
  EXPECT_EQ(mediaRemote().stringConstant(""), std::nullopt);
}

TEST_P(MediaRemoteContract, NothingIsPlayingAtFirst) {
  const Answers answers = ask();
  EXPECT_EQ(answers.info, std::nullopt);
  EXPECT_LE(answers.process, 0);
  EXPECT_FALSE(answers.isPlaying);
}

TEST_P(MediaRemoteContract, TellsWhatThePlayerPlays) {
  world().play("one", "Morning");
  ASSERT_TRUE(waitFor([](const Answers& answers) { return answers.title() == "Morning"; }));
  const Answers answers = ask();
  EXPECT_EQ(value<std::string>(answers.info, "Artist"), "Artist");
  EXPECT_EQ(value<MediaRemoteData>(answers.info, "ArtworkData"), MediaRemoteData{"picture"});
  EXPECT_GT(answers.rate(), 0);
  EXPECT_GT(answers.process, 0);
  EXPECT_TRUE(answers.isPlaying);
}

TEST_P(MediaRemoteContract, APausedPlayerHasTheRateZero) {
  world().play("one", "Morning");
  ASSERT_TRUE(waitFor([](const Answers& answers) { return answers.isPlaying; }));
  const ProcessIdentifier process = ask().process;
  world().pause("one");
  ASSERT_TRUE(waitFor([](const Answers& answers) { return !answers.isPlaying; }));
  const Answers answers = ask();
  EXPECT_EQ(answers.rate(), 0);
  EXPECT_EQ(answers.title(), "Morning");
  EXPECT_EQ(answers.process, process);
}

TEST_P(MediaRemoteContract, WhatQuitIsForgotten) {
  world().play("one", "Morning");
  ASSERT_TRUE(waitFor([](const Answers& answers) { return answers.isPlaying; }));
  world().quit("one");
  EXPECT_TRUE(waitFor([](const Answers& answers) {
    return !answers.isPlaying && !answers.info && answers.process <= 0;
  }));
}

TEST_P(MediaRemoteContract, EachAnswerComesOnceAndOnTheQueue) {
  // The queue runs one item at a time: while this one runs, no answer may.
  std::atomic<bool> isBlocked = true;
  std::atomic<int> answers = 0;
  const std::shared_ptr<Semaphore> gate = world().dispatch().makeSemaphore(0);
  queue()->async([gate] { gate->wait(std::nullopt); });
  mediaRemote().getNowPlayingInfo(queue(), [&](const auto&) {
    EXPECT_FALSE(isBlocked);
    ++answers;
  });
  mediaRemote().getNowPlayingApplicationPID(queue(), [&](ProcessIdentifier) {
    EXPECT_FALSE(isBlocked);
    ++answers;
  });
  mediaRemote().getNowPlayingApplicationIsPlaying(queue(), [&](bool) {
    EXPECT_FALSE(isBlocked);
    ++answers;
  });
  isBlocked = false;
  gate->signal();
  EXPECT_TRUE(runUntil([&] { return answers == 3; }));
  // Every other answer has come when this one has.
  ask();
  EXPECT_EQ(answers, 3);
}

TEST_P(MediaRemoteContract, TellsOfChangesToThoseWhoRegistered) {
  world().play("one", "Morning");
  ASSERT_TRUE(waitFor([](const Answers& answers) { return answers.isPlaying; }));
  Counts counts{};
  observe(counts);
  mediaRemote().registerForNowPlayingNotifications(queue());

  world().play("one", "Evening");
  EXPECT_TRUE(runUntil([&] { return counts[infoNotice] > 0; }));
  EXPECT_EQ(counts[applicationNotice], 0);
  EXPECT_EQ(counts[isPlayingNotice], 0);

  world().pause("one");
  EXPECT_TRUE(runUntil([&] { return counts[isPlayingNotice] > 0; }));
  EXPECT_EQ(counts[applicationNotice], 0);

  world().quit("one");
  EXPECT_TRUE(runUntil([&] { return counts[applicationNotice] > 0; }));
}

TEST_P(MediaRemoteContract, TellsNothingToThoseWhoDidNotRegisterOrNoLongerDo) {
  Counts counts{};
  observe(counts);
  world().play("one", "Morning");
  ASSERT_TRUE(waitFor([](const Answers& answers) { return answers.isPlaying; }));
  mediaRemote().registerForNowPlayingNotifications(queue());
  mediaRemote().unregisterForNowPlayingNotifications();
  world().pause("one");
  ASSERT_TRUE(waitFor([](const Answers& answers) { return !answers.isPlaying; }));
  // Whatever had been told so far would be there by then.
  std::atomic<bool> hasCome = false;
  world().notifications().addObserver("later", [&] { hasCome = true; });
  world().notifications().post("later");
  ASSERT_TRUE(runUntil([&] { return hasCome.load(); }));
  for (const std::atomic<int>& count : counts) EXPECT_EQ(count, 0);
}

}  // namespace talmo::test
