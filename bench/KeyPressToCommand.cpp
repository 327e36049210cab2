// From a press of a media key to the command that arrives at the player: through the whole program,
// pinned to the player (`talmo`) and in auto mode in a quick run of presses (`auto`), and through
// the least that could do it (`floor`: one grab, one D-Bus message). All run side by side, the one
// in auto mode on a private bus and a display of its own, the other two on keys of their own, and
// the presses take turns, so that whatever the machine is doing meets all.

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/Arrival.h"
#include "bench/LeastRouter.h"
#include "bench/Samples.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using Clock = std::chrono::steady_clock;

/// Talmo with a display and settings of its own.
class TalmoDesk {
 public:
  /// Waits until Talmo has logged `line`. Throws when it does not come so far.
  TalmoDesk(const PrivateBus& bus, const std::string& selection, const std::string& line) {
    std::filesystem::create_directories(folder_.path() / "talmo");
    std::ofstream(folder_.path() / "talmo" / "settings.json")
        << R"({"hasCompletedOnboarding": true, "selectedTargetAppID": ")" << selection << "\"}";
    talmo_ = std::make_unique<TestProcess>(
        TestProcess::Start{.arguments = {TALMO_PROGRAM},
                           .environment = {{"DISPLAY", display_.name()},
                                           {"DBUS_SESSION_BUS_ADDRESS", bus.address()},
                                           {"XDG_CONFIG_HOME", folder_.path().string()},
                                           {"XDG_RUNTIME_DIR", folder_.path().string()}}});
    const auto isLogged = [&] { return talmo_->output().find(line) != std::string::npos; };
    if (!waitUntil(isLogged)) throw std::runtime_error("talmo did not start");
  }

  const std::string& displayName() const { return display_.name(); }
  KeyPresser& keys() { return keys_; }

 private:
  const PrivateDisplay display_;
  const TemporaryFolder folder_;
  KeyPresser keys_{display_.name()};
  std::unique_ptr<TestProcess> talmo_;
};

void pressToCommand(benchmark::State& state) {
  const PrivateBus bus;
  // A session has one Talmo.
  const PrivateBus autosBus;
  Arrival atAutosPlayer;
  ::setenv("DBUS_SESSION_BUS_ADDRESS", autosBus.address().c_str(), 1);
  const FakePlayer autosPlayer(
      {.name = "audacious", .onCommand = [&](const std::string&) { atAutosPlayer.set(); }});
  ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);

  Arrival atTalmosPlayer;
  Arrival atFloorsPlayer;
  const FakePlayer talmosPlayer(
      {.name = "audacious", .onCommand = [&](const std::string&) { atTalmosPlayer.set(); }});
  const FakePlayer floorsPlayer(
      {.name = "floor", .onCommand = [&](const std::string&) { atFloorsPlayer.set(); }});

  TalmoDesk pinned(bus, "audacious", "Routing media keys to Audacious");
  TalmoDesk automatic(autosBus, "auto", "Routing media keys automatically");
  const LeastRouter floor(pinned.displayName(), pinned.keys().keycode("XF86AudioStop"));

  const auto measure = [](TalmoDesk& desk, const char* key, Arrival& arrival) {
    const auto start = Clock::now();
    desk.keys().tap(key);
    return arrival.take() - start;
  };
  Samples throughTalmo;
  Samples inAutoMode;
  Samples throughFloor;
  for (auto _ : state) {
    throughFloor.add(measure(pinned, "XF86AudioStop", atFloorsPlayer));
    throughTalmo.add(measure(pinned, "XF86AudioNext", atTalmosPlayer));
    inAutoMode.add(measure(automatic, "XF86AudioNext", atAutosPlayer));
    state.SetIterationTime(throughTalmo.last());
  }
  state.counters["talmo_us"] = throughTalmo.median() * 1e6;
  state.counters["auto_us"] = inAutoMode.median() * 1e6;
  state.counters["floor_us"] = throughFloor.median() * 1e6;
  state.counters["ratio"] = throughTalmo.median() / throughFloor.median();
  state.counters["auto_ratio"] = inAutoMode.median() / throughFloor.median();
}

BENCHMARK(pressToCommand)
    ->Name("key press to player command")
    ->UseManualTime()
    ->Iterations(1000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace talmo::test

BENCHMARK_MAIN();
