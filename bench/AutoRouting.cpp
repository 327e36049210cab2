// From the decision about a media key to the command that arrives at a player, in auto mode, by
// what auto mode has to find out first. Beside it the same with the player pinned, which finds out
// nothing; the two take turns, so that whatever the machine is doing meets both.
//
// Everything but the clock is real: the time that passes between two presses is added to what the
// program reads, so that nobody has to wait until what it knows is old.

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>

#include "app/AppCoordinator.h"
#include "app/Preferences.h"
#include "bench/Arrival.h"
#include "bench/Samples.h"
#include "nowplaying/AdapterNowPlaying.h"
#include "platform/linux/applications/LinuxAppleEvents.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/processes/LinuxChildProcesses.h"
#include "platform/linux/settings/LinuxUserDefaults.h"
#include "tests/desktop/web/WebStage.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/TestPlatform.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// The real one but for its clock, which can be moved on.
class MovedDispatch : public LinuxDispatch {
 public:
  Uptime uptime() const override { return LinuxDispatch::uptime() + moved_.load(); }
  void moveOn(Duration time) { moved_ = moved_.load() + time; }

 private:
  std::atomic<Duration> moved_{Duration::zero()};
};

/// The services that routing needs, on the desktop of the environment.
class Machine {
 public:
  Machine() = default;
  ~Machine() {
    dispatch.shutdown();
    platform_.states().clear();
  }
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  MovedDispatch dispatch;

 private:
  const std::filesystem::path folder_ = std::filesystem::path(TALMO_PROGRAM).parent_path();
  LinuxAppleEvents appleEvents_;
  LinuxBundle bundle_{folder_};
  LinuxChildProcesses childProcesses_{folder_};
  LinuxUserDefaults userDefaults_{LinuxUserDefaults::standardFile()};
  LinuxWorkspace workspace_{dispatch};
  TestPlatform platform_{{.appleEvents = &appleEvents_,
                          .bundle = &bundle_,
                          .childProcesses = &childProcesses_,
                          .dispatch = &dispatch,
                          .userDefaults = &userDefaults_,
                          .workspace = &workspace_}};
};

/// What auto mode has to find out at a press.
enum class Finding {
  /// Nothing, as the last press is not long ago.
  nothing,
  /// Who had the session a moment ago, which it knows.
  recentOwner,
  /// Who has the session, which it asks.
  sessionOwner,
  /// Which tabs the browser has that had the session a moment ago, which it asks.
  tabs,
};

std::shared_ptr<AppCoordinator> coordinatorFor(const char* selection) {
  Preferences::setSelectedTargetAppID(selection);
  auto coordinator = AppCoordinator::make();
  coordinator->updateActiveController();
  return coordinator;
}

/// Lets everything become old that is known so far but what `finding` needs.
void prepare(MovedDispatch& dispatch, Finding finding) {
  switch (finding) {
    case Finding::nothing:
      return;
    case Finding::sessionOwner:
      dispatch.moveOn(20s);
      return;
    case Finding::recentOwner:
    case Finding::tabs:
      if (!AdapterNowPlaying::getSync()) throw std::runtime_error("nobody has the session");
      dispatch.moveOn(3s);
  }
}

void measure(benchmark::State& state, WebStage& stage, Finding finding) {
  stage.clear();
  Arrival arrival;
  const bool isBrowsers = finding == Finding::tabs;
  const FakePlayer player({.name = "audacious",
                           .playbackStatus = isBrowsers ? "Stopped" : "Playing",
                           .onCommand = [&](const std::string&) { arrival.set(); }});
  if (isBrowsers) {
    // Sound that is no web player's: the browser has the session, and no tab of it is known.
    stage.tabs().open("https://www.youtube.com/tune-220.wav");
    if (!waitUntil([&] { return stage.session().playbackStatus() == "Playing"; }, 30s)) {
      throw std::runtime_error("the browser does not play");
    }
  }
  Machine machine;
  Preferences::setLastResolvedTargetID("audacious");
  const auto pinned = coordinatorFor("audacious");
  const auto automatic = coordinatorFor("auto");
  const auto press = [&](AppCoordinator& coordinator) {
    const Clock::time_point start = Clock::now();
    coordinator.mediaKeyTap(coordinator.tap(), MediaKey::next, true, false);
    return arrival.take() - start;
  };
  press(*pinned);
  press(*automatic);

  Samples whenPinned;
  Samples inAutoMode;
  for (auto _ : state) {
    whenPinned.add(press(*pinned));
    prepare(machine.dispatch, finding);
    inAutoMode.add(press(*automatic));
    state.SetIterationTime(inAutoMode.last());
  }
  state.counters["auto_us"] = inAutoMode.median() * 1e6;
  state.counters["pinned_us"] = whenPinned.median() * 1e6;
  state.counters["ratio"] = inAutoMode.median() / whenPinned.median();
}

void add(const char* name, WebStage& stage, Finding finding, int iterations) {
  const auto run = [&stage, finding](benchmark::State& state) {
    try {
      measure(state, stage, finding);
    } catch (const std::exception& error) {
      state.SkipWithError(error.what());
    }
  };
  benchmark::RegisterBenchmark(name, run)
      ->UseManualTime()
      ->Iterations(iterations)
      ->Unit(benchmark::kMicrosecond);
}

}  // namespace
}  // namespace talmo::test

int main(int count, char** arguments) {
  using talmo::test::add;
  using talmo::test::Finding;
  benchmark::Initialize(&count, arguments);
  talmo::test::WebStage stage;
  for (const auto& [name, value] : stage.desktop().environment()) {
    ::setenv(name.c_str(), value.c_str(), 1);
  }
  add("auto mode, a quick second press", stage, Finding::nothing, 1000);
  add("auto mode, the owner known", stage, Finding::recentOwner, 200);
  add("auto mode, the owner asked for", stage, Finding::sessionOwner, 200);
  add("auto mode, the owner known and its tabs asked for", stage, Finding::tabs, 100);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
