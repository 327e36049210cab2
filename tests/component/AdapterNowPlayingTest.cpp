#include "tests/component/AdapterNowPlayingTest.h"

#include <absl/strings/escaping.h>
#include <algorithm>
#include <csignal>
#include <thread>

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using Parameters = ChildProcessParameters;
using Reason = ChildTermination::Reason;

Parameters run(std::vector<std::string> arguments, ChildOutput standardError) {
  std::vector<std::string> all = {SimulatedBundle::adapterScript,
                                  SimulatedBundle::adapterFramework};
  std::ranges::move(arguments, std::back_inserter(all));
  return {.executable = "/usr/bin/perl",
          .arguments = std::move(all),
          .standardOutput = ChildOutput::pipe,
          .standardError = standardError};
}

std::string artwork(int width, const std::string& name) {
  return absl::Base64Escape(SimulatedImageDecoder::encode(width, 1, name));
}

constexpr const char* answer =
    R"({"bundleIdentifier":"com.google.Chrome.helper","playing":true,"title":"Video",)"
    R"("parentApplicationBundleIdentifier":"com.google.Chrome"})"
    "\n";

}  // namespace

std::size_t AdapterNowPlayingTest::ended() {
  const auto launches = machine().childProcesses().launches();
  return static_cast<std::size_t>(std::ranges::count_if(
      launches, [](const auto& launch) { return launch.termination.has_value(); }));
}

std::string AdapterNowPlayingTest::line(const std::string& title, const std::string& more) {
  return R"({"payload":{"bundleIdentifier":"com.spotify.client","playing":true,"title":")" + title +
         "\"" + more + "}}\n";
}

std::optional<AdapterNowPlayingSnapshot> AdapterNowPlayingTest::getSync() {
  std::optional<AdapterNowPlayingSnapshot> snapshot;
  bool isDone = false;
  Dispatch& dispatch = machine().dispatch();
  dispatch.globalQueue(QualityOfService::userInitiated).async([&] {
    auto answered = AdapterNowPlaying::getSync();
    dispatch.mainQueue().async([&, answered] {
      snapshot = answered;
      isDone = true;
    });
  });
  EXPECT_TRUE(runUntil([&] { return isDone; }));
  return snapshot;
}

TEST_P(AdapterNowPlayingTest, TheStreamIsPerlWithTheScriptAndTheFramework) {
  const auto adapter = started(Script().liveOn());
  const auto launches = machine().childProcesses().launches();
  ASSERT_EQ(launches.size(), 1U);
  EXPECT_EQ(launches[0].parameters, run({"stream"}, ChildOutput::pipe));
  EXPECT_THAT(log(), ElementsAre("adapter stream started"));
  EXPECT_EQ(adapter->snapshot(), std::nullopt);
}

TEST_P(AdapterNowPlayingTest, ALineBecomesASnapshotOnTheMainThread) {
  setAdapter(
      Script().write(line("Song", R"(,"artist":"A","duration":200,"elapsedTime":1.5)")).liveOn());
  const auto adapter = AdapterNowPlaying::make();
  bool isMainThread = false;
  std::string titleAtUpdate;
  adapter->setOnUpdate([&] {
    isMainThread = machine().dispatch().isMainThread();
    titleAtUpdate = adapter->snapshot()->title;
  });
  adapter->start();
  ASSERT_TRUE(runUntil([&] { return adapter->snapshot().has_value(); }));
  EXPECT_TRUE(isMainThread);
  EXPECT_EQ(titleAtUpdate, "Song");
  EXPECT_EQ(adapter->snapshot(), (AdapterNowPlayingSnapshot{.bundleID = "com.spotify.client",
                                                            .title = "Song",
                                                            .artist = "A",
                                                            .isPlaying = true,
                                                            .elapsedTime = 1.5,
                                                            .duration = 200}));
}

TEST_P(AdapterNowPlayingTest, AChunkThatEndsWithinALineIsKeptForTheNext) {
  const std::string whole = line("Song");
  const auto adapter =
      started(Script().write(whole.substr(0, 20)).wait(1ms).write(whole.substr(20)).liveOn());
  ASSERT_TRUE(runUntilUpdates(1));
  EXPECT_EQ(adapter->snapshot()->title, "Song");
}

TEST_P(AdapterNowPlayingTest, TwoLinesOfOneChunkAreHandledInOrder) {
  std::vector<std::string> titles;
  setAdapter(Script().write(line("One") + line("Two")).liveOn());
  const auto adapter = AdapterNowPlaying::make();
  adapter->setOnUpdate([&] { titles.push_back(adapter->snapshot()->title); });
  adapter->start();
  ASSERT_TRUE(runUntil([&] { return titles.size() == 2; }));
  EXPECT_THAT(titles, ElementsAre("One", "Two"));
}

TEST_P(AdapterNowPlayingTest, ADifferenceChangesAndRemovesAndAFullStateReplaces) {
  std::vector<AdapterNowPlayingSnapshot> seen;
  setAdapter(Script()
                 .write(line("One", R"(,"album":"Album","artist":"Artist")"))
                 .write("{\"diff\":true,\"payload\":{\"album\":null,\"title\":\"Two\"}}\n")
                 .write(line("Three"))
                 .liveOn());
  const auto adapter = AdapterNowPlaying::make();
  adapter->setOnUpdate([&] { seen.push_back(*adapter->snapshot()); });
  adapter->start();
  ASSERT_TRUE(runUntil([&] { return seen.size() == 3; }));
  EXPECT_EQ(seen[0].album, "Album");
  EXPECT_EQ(seen[1].title, "Two");
  EXPECT_EQ(seen[1].album, std::nullopt);
  EXPECT_EQ(seen[1].artist, "Artist");
  EXPECT_EQ(seen[2].title, "Three");
  EXPECT_EQ(seen[2].artist, "");
}

TEST_P(AdapterNowPlayingTest, AnEmptyTitleAndAPlayingNumberClearTheSnapshot) {
  std::vector<bool> seen;
  setAdapter(Script()
                 .write(line("Song"))
                 .write(line(""))
                 .write(line("Song"))
                 .write("{\"diff\":true,\"payload\":{\"playing\":1}}\n")
                 .liveOn());
  const auto adapter = AdapterNowPlaying::make();
  adapter->setOnUpdate([&] { seen.push_back(adapter->snapshot().has_value()); });
  adapter->start();
  ASSERT_TRUE(runUntil([&] { return seen.size() == 4; }));
  EXPECT_THAT(seen, ElementsAre(true, false, true, false));
  EXPECT_EQ(AdapterNowPlaying::recentOwner(1s)->title, "Song");
}

TEST_P(AdapterNowPlayingTest, AnUnchangedSnapshotIsNotPublishedAgain) {
  const auto adapter = started(Script()
                                   .write(line("Song", R"(,"elapsedTime":1)"))
                                   .write(line("Song", R"(,"elapsedTime":1)"))
                                   .write(line("Song", R"(,"elapsedTime":2)"))
                                   .write(line("Song", R"(,"elapsedTime":2,"unread":true)"))
                                   .write(line("Last"))
                                   .liveOn());
  ASSERT_TRUE(
      runUntil([&] { return adapter->snapshot() && adapter->snapshot()->title == "Last"; }));
  EXPECT_EQ(updates(), 3);
}

TEST_P(AdapterNowPlayingTest, LinesThatAreNoEnvelopesAreSkipped) {
  const auto adapter =
      started(Script()
                  .write("\n\nnonsense\n{}\n[]\n{\"payload\":null}\n{\"payload\":\n")
                  .write("{\"other\":{}}\n\xFF\n")
                  .write(line("Song"))
                  .liveOn());
  ASSERT_TRUE(runUntilUpdates(1));
  EXPECT_EQ(adapter->snapshot()->title, "Song");
  EXPECT_THAT(log(), ElementsAre("adapter stream started"));
}

TEST_P(AdapterNowPlayingTest, AnEndlessLineIsDroppedAndTheNextIsRead) {
  Script script;
  for (std::size_t sent = 0; sent <= AdapterLines::maximumLength; sent += std::size_t{4} << 20) {
    script.write(std::string(std::size_t{4} << 20, 'x'));
  }
  const auto adapter = started(script.write("\n" + line("Song")).liveOn());
  ASSERT_TRUE(runUntilUpdates(1));
  EXPECT_EQ(adapter->snapshot()->title, "Song");
}

TEST_P(AdapterNowPlayingTest, ArtworkIsDecodedOnceHoweverManyLinesRepeatIt) {
  const std::string cover = R"(,"artworkData":")" + artwork(4, "cover") + "\"";
  const auto adapter = started(Script()
                                   .write(line("One", cover))
                                   .write("{\"diff\":true,\"payload\":{\"title\":\"Two\"}}\n")
                                   .write(line("Three", cover))
                                   .write(line("Four"))
                                   .write(line("Five", cover))
                                   .liveOn());
  ASSERT_TRUE(runUntilUpdates(5));
  EXPECT_EQ(adapter->snapshot()->artwork->width, 4);
  EXPECT_EQ(machine().imageDecoder().decodes(), 1);
}

TEST_P(AdapterNowPlayingTest, ArtworkThatIsNoneLeavesTheCacheAlone) {
  const std::string cover = R"(,"artworkData":")" + artwork(4, "cover") + "\"";
  const auto adapter = started(Script()
                                   .write(line("One", cover))
                                   .write(line("Two", R"(,"artworkData":"bm8gaW1hZ2U=")"))
                                   .write(line("Three", R"(,"artworkData":"no*base64")"))
                                   .write(line("Four", cover))
                                   .liveOn());
  ASSERT_TRUE(runUntilUpdates(4));
  EXPECT_TRUE(adapter->snapshot()->artwork.has_value());
  EXPECT_EQ(machine().imageDecoder().decodes(), 2);
}

TEST_P(AdapterNowPlayingTest, NewArtworkAloneIsNoChange) {
  const auto adapter =
      started(Script()
                  .write(line("Song", R"(,"artworkData":")" + artwork(4, "a") + "\""))
                  .write(line("Song", R"(,"artworkData":")" + artwork(8, "b") + "\""))
                  .write(line("Last"))
                  .liveOn());
  ASSERT_TRUE(
      runUntil([&] { return adapter->snapshot() && adapter->snapshot()->title == "Last"; }));
  EXPECT_EQ(updates(), 2);
}

TEST_P(AdapterNowPlayingTest, StandardErrorIsReadAndDiscarded) {
  Script script;
  for (int count = 0; count < 64; ++count) script.writeError(std::string(64 << 10, 'e'));
  const auto adapter = started(script.write(line("Song")).liveOn());
  ASSERT_TRUE(runUntilUpdates(1));
}

TEST_P(AdapterNowPlayingTest, AMissingScriptOrFrameworkIsLoggedOncePerCall) {
  const std::string unavailable = "adapter unavailable: bundled script or framework missing";
  const auto adapter = AdapterNowPlaying::make();
  setAdapter(Script().liveOn());

  machine().bundle().setFileExists(SimulatedBundle::adapterScript, false);
  adapter->start();
  EXPECT_THAT(log(), ElementsAre(unavailable));
  machine().bundle().setFileExists(SimulatedBundle::adapterScript, true);
  machine().bundle().setFileExists(SimulatedBundle::adapterFramework, false);
  adapter->start();
  EXPECT_THAT(log(), ElementsAre(unavailable, unavailable));
  machine().bundle().setFileExists(SimulatedBundle::adapterFramework, true);
  machine().bundle().setResource("mediaremote-adapter.pl", std::nullopt);
  bool isComplete = false;
  AdapterNowPlaying::get(false, [&](const auto& snapshot) {
    EXPECT_EQ(snapshot, std::nullopt);
    EXPECT_TRUE(machine().dispatch().isMainThread());
    isComplete = true;
  });
  ASSERT_TRUE(runUntil([&] { return isComplete; }));
  machine().bundle().setResource("mediaremote-adapter.pl", SimulatedBundle::adapterScript);
  machine().bundle().setPrivateFrameworksPath(std::nullopt);
  EXPECT_EQ(getSync(), std::nullopt);
  AdapterNowPlaying::send(2);
  EXPECT_EQ(log(), Lines(5, unavailable));
  EXPECT_THAT(machine().childProcesses().launches(), IsEmpty());
}

TEST_P(AdapterNowPlayingTest, ALaunchThatFailsIsLoggedAndLeavesNoProcess) {
  const auto adapter = started(Script::launchFailure("no such program"));
  EXPECT_THAT(log(), ElementsAre("adapter stream failed to start: no such program"));
  setAdapter(Script().write(line("Song")).liveOn());
  adapter->start();
  EXPECT_TRUE(runUntilUpdates(1));
}

TEST_P(AdapterNowPlayingTest, AnEndOfTheStreamIsLoggedAndFreezesTheSnapshot) {
  const auto adapter = started(Script().write(line("Song")).wait(10ms).exit(3));
  ASSERT_TRUE(runUntilUpdates(1));
  ASSERT_TRUE(runUntilEnded(1));
  ASSERT_TRUE(runUntil([&] { return log().size() == 2; }));
  EXPECT_THAT(log(), ElementsAre("adapter stream started", "adapter stream ended (status 3)"));
  EXPECT_EQ(adapter->snapshot()->title, "Song");
  EXPECT_EQ(updates(), 1);
  EXPECT_EQ(machine().childProcesses().launches().size(), 1U);
}

TEST_P(AdapterNowPlayingTest, AnEndBySignal15IsNotLoggedAndOthersAre) {
  auto adapter = started(Script().signal(SIGTERM));
  ASSERT_TRUE(runUntilEnded(1));
  setAdapter(Script().signal(SIGKILL));
  adapter->start();
  ASSERT_TRUE(runUntil([&] { return log().size() >= 3; }));
  setAdapter(Script().exit(SIGTERM));
  adapter->start();
  ASSERT_TRUE(runUntil([&] { return log().size() >= 5; }));
  // A child that ends at once may be seen to end before the line of its start is written.
  EXPECT_THAT(log(),
              UnorderedElementsAre("adapter stream started", "adapter stream started",
                                   "adapter stream ended (status 9)", "adapter stream started",
                                   "adapter stream ended (status 15)"));
}

TEST_P(AdapterNowPlayingTest, AfterAnEndTheNextStreamBeginsFromNothing) {
  int launch = 0;
  machine().childProcesses().setPrograms([&launch](const Parameters&) {
    if (launch++ == 0) {
      return Script().write(line("One", R"(,"artist":"A")") + "{\"payload\":").wait(10ms).exit(1);
    }
    return Script()
        .write("{\"diff\":true,\"payload\":{\"bundleIdentifier\":\"b\",\"playing\":true}}\n")
        .write("{\"diff\":true,\"payload\":{\"title\":\"Two\"}}\n")
        .liveOn();
  });
  const auto adapter = AdapterNowPlaying::make();
  std::vector<std::optional<AdapterNowPlayingSnapshot>> seen;
  adapter->setOnUpdate([&] { seen.push_back(adapter->snapshot()); });
  adapter->start();
  ASSERT_TRUE(runUntilEnded(1));
  ASSERT_TRUE(runUntil([&] { return log().size() == 2; }));
  adapter->start();
  ASSERT_TRUE(runUntil([&] { return seen.size() == 3; }));
  EXPECT_EQ(seen[0]->title, "One");
  EXPECT_EQ(seen[1], std::nullopt);
  EXPECT_EQ(seen[2]->title, "Two");
  EXPECT_EQ(seen[2]->artist, "");
}

TEST_P(AdapterNowPlayingTest, StoppingEndsTheStreamSilentlyAndKeepsTheSnapshot) {
  const auto adapter = started(Script().write(line("Song")).liveOn());
  ASSERT_TRUE(runUntilUpdates(1));
  adapter->stop();
  ASSERT_TRUE(runUntilEnded(1));
  ASSERT_TRUE(world().runMainQueue());
  const auto launches = machine().childProcesses().launches();
  EXPECT_EQ(launches[0].terminates, 1);
  EXPECT_EQ(launches[0].termination, (ChildTermination{Reason::uncaughtSignal, SIGTERM}));
  EXPECT_THAT(log(), ElementsAre("adapter stream started"));
  EXPECT_EQ(adapter->snapshot()->title, "Song");
  adapter->stop();
  EXPECT_EQ(machine().childProcesses().launches()[0].terminates, 1);
}

TEST_P(AdapterNowPlayingTest, ASecondStartRestarts) {
  const auto adapter = started(Script().liveOn());
  setAdapter(Script().write(line("Song")).liveOn());
  adapter->start();
  ASSERT_TRUE(runUntilUpdates(1));
  ASSERT_TRUE(runUntilEnded(1));
  const auto launches = machine().childProcesses().launches();
  ASSERT_EQ(launches.size(), 2U);
  EXPECT_EQ(launches[0].terminates, 1);
  EXPECT_TRUE(launches[1].isRunning);
}

TEST_P(AdapterNowPlayingTest, WhatAnEarlierStreamStillSaysIsNotTakenForThePresentOnes) {
  // The first is stopped within a line, and does not end when it is asked to.
  setAdapter(Script().ignoreTerminate().write("{\"payload\":").wait(5ms).write("1").liveOn());
  const auto adapter = AdapterNowPlaying::make();
  adapter->start();
  ASSERT_TRUE(world().runMainQueue());
  setAdapter(Script().wait(1ms).write(line("Song")).wait(10ms).write(line("Last")).liveOn());
  adapter->start();
  ASSERT_TRUE(
      runUntil([&] { return adapter->snapshot() && adapter->snapshot()->title == "Last"; }));
}

TEST_P(AdapterNowPlayingTest, DestroyingItEndsTheStream) {
  auto adapter = started(Script().write(line("Song")).liveOn());
  ASSERT_TRUE(runUntilUpdates(1));
  adapter.reset();
  ASSERT_TRUE(runUntilEnded(1));
  EXPECT_THAT(log(), ElementsAre("adapter stream started"));
}

TEST_P(AdapterNowPlayingTest, NothingIsPublishedOnceItIsGone) {
  auto adapter = started(Script().write(line("Song")).wait(1s).write(line("Two")).liveOn());
  adapter.reset();
  ASSERT_TRUE(runUntilEnded(1));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(updates(), 0);
}

TEST_P(AdapterNowPlayingTest, GetReadsTheFlatObjectAndItsArtwork) {
  std::string flat(answer);
  flat.insert(1, R"("artworkData":")" + artwork(6, "cover") + "\",");
  setAdapter(Script().write(flat));
  std::optional<AdapterNowPlayingSnapshot> snapshot;
  AdapterNowPlaying::get(false, [&](const auto& result) {
    EXPECT_TRUE(machine().dispatch().isMainThread());
    snapshot = result;
  });
  ASSERT_TRUE(runUntil([&] { return snapshot.has_value(); }));
  EXPECT_EQ(snapshot->title, "Video");
  EXPECT_EQ(snapshot->artwork->width, 6);
  EXPECT_EQ(machine().childProcesses().launches()[0].parameters,
            run({"get"}, ChildOutput::nullDevice));
  EXPECT_EQ(AdapterNowPlaying::recentOwner(1s),
            (AdapterOwner{.bundleID = "com.google.Chrome.helper",
                          .parentBundleID = "com.google.Chrome",
                          .title = "Video"}));
}

TEST_P(AdapterNowPlayingTest, GetWithoutArtworkAsksForNone) {
  setAdapter(Script().write(answer));
  bool isComplete = false;
  AdapterNowPlaying::get(true, [&](const auto&) { isComplete = true; });
  ASSERT_TRUE(runUntil([&] { return isComplete; }));
  EXPECT_EQ(machine().childProcesses().launches()[0].parameters,
            run({"get", "--no-artwork"}, ChildOutput::nullDevice));
}

TEST_P(AdapterNowPlayingTest, GetReadsMoreThanAPipeHolds) {
  std::string flat(answer);
  flat.insert(1, R"("other":")" + std::string(1 << 20, 'A') + "\",");
  setAdapter(Script().write(flat));
  std::optional<AdapterNowPlayingSnapshot> snapshot;
  AdapterNowPlaying::get(false, [&](const auto& result) { snapshot = result; });
  ASSERT_TRUE(runUntil([&] { return snapshot.has_value(); }));
}

TEST_P(AdapterNowPlayingTest, GetCompletesWithNoneWhateverGoesWrong) {
  for (const Script& script :
       {Script::launchFailure("broken"), Script().write("{}\n"), Script().write("no JSON"),
        Script().exit(1), Script().signal(SIGKILL), Script().write(std::string(answer, 40))}) {
    setAdapter(script);
    int completions = 0;
    AdapterNowPlaying::get(true, [&](const auto& snapshot) {
      EXPECT_EQ(snapshot, std::nullopt);
      ++completions;
    });
    ASSERT_TRUE(runUntil([&] { return completions > 0; }));
    ASSERT_TRUE(world().runMainQueue());
    EXPECT_EQ(completions, 1);
  }
  EXPECT_THAT(log(), ElementsAre("adapter get failed: broken"));
  EXPECT_EQ(AdapterNowPlaying::recentOwner(1h), std::nullopt);
}

TEST_P(AdapterNowPlayingTest, GetSyncWaitsForTheAnswer) {
  setAdapter(Script().wait(2ms).write(answer));
  const auto snapshot = getSync();
  ASSERT_TRUE(snapshot.has_value());
  EXPECT_EQ(snapshot->title, "Video");
  EXPECT_EQ(machine().childProcesses().launches()[0].parameters,
            run({"get", "--no-artwork"}, ChildOutput::nullDevice));
  EXPECT_EQ(AdapterNowPlaying::recentOwner(1s)->title, "Video");
  EXPECT_THAT(log(), IsEmpty());
}

TEST_P(AdapterNowPlayingTest, GetSyncTellsWhyItHasNoAnswer) {
  setAdapter(Script::launchFailure("broken"));
  EXPECT_EQ(getSync(), std::nullopt);
  setAdapter(Script().write("no JSON").exit(1));
  EXPECT_EQ(getSync(), std::nullopt);
  EXPECT_THAT(log(), ElementsAre("adapter sync run failed: broken"));
}

TEST_P(AdapterNowPlayingTest, GetSyncEndsAnAdapterThatTakesTooLong) {
  setAdapter(Script().write(answer).liveOn());
  const Uptime before = machine().dispatch().uptime();
  EXPECT_EQ(getSync(), std::nullopt);
  EXPECT_GE(machine().dispatch().uptime() - before, 1500ms);
  ASSERT_TRUE(runUntilEnded(1));
  EXPECT_EQ(machine().childProcesses().launches()[0].terminates, 1);
  EXPECT_THAT(log(), ElementsAre("adapter sync run timed out"));
  EXPECT_EQ(AdapterNowPlaying::recentOwner(1h), std::nullopt);
}

TEST_P(AdapterNowPlayingTest, SendPassesTheCommandAndIgnoresTheOutput) {
  setAdapter(Script().write(answer));
  bool isDone = false;
  Dispatch& dispatch = machine().dispatch();
  dispatch.globalQueue(QualityOfService::userInitiated).async([&] {
    AdapterNowPlaying::send(2);
    AdapterNowPlaying::send(-1, 1s);
    dispatch.mainQueue().async([&] { isDone = true; });
  });
  ASSERT_TRUE(runUntil([&] { return isDone; }));
  const auto launches = machine().childProcesses().launches();
  ASSERT_EQ(launches.size(), 2U);
  EXPECT_EQ(launches[0].parameters, run({"send", "2"}, ChildOutput::nullDevice));
  EXPECT_EQ(launches[1].parameters, run({"send", "-1"}, ChildOutput::nullDevice));
  EXPECT_EQ(AdapterNowPlaying::recentOwner(1h), std::nullopt);
}

TEST_P(AdapterNowPlayingTest, SendReturnsAtItsTimeout) {
  setAdapter(Script().ignoreTerminate().liveOn());
  bool isDone = false;
  Dispatch& dispatch = machine().dispatch();
  const Uptime before = dispatch.uptime();
  dispatch.globalQueue(QualityOfService::userInitiated).async([&] {
    AdapterNowPlaying::send(4, 20ms);
    dispatch.mainQueue().async([&] { isDone = true; });
  });
  ASSERT_TRUE(runUntil([&] { return isDone; }));
  EXPECT_GE(dispatch.uptime() - before, 20ms);
  EXPECT_THAT(log(), ElementsAre("adapter sync run timed out"));
}

}  // namespace talmo::test
