// From the start of the program to the first media key that reaches the player, beside the least
// program that takes a key and sends a message. A key is pressed again and again until one is
// served; both start in turns on the same display and bus.

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

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
using namespace std::chrono_literals;

constexpr auto patience = 30s;

class Desk {
 public:
  Desk() {
    std::filesystem::create_directories(folder_.path() / "talmo");
    std::ofstream(folder_.path() / "talmo" / "settings.json")
        << R"({"hasCompletedOnboarding": true, "selectedTargetAppID": "audacious"})";
  }

  KeyPresser& keys() { return keys_; }

  /// From the start of a program to the arrival of the first key. The program has ended on return.
  Clock::duration startToKey(std::vector<std::string> arguments, std::uint8_t keycode,
                             const FakePlayer& player) {
    const std::size_t before = player.received().size();
    const auto start = Clock::now();
    const TestProcess process({.arguments = std::move(arguments),
                               .environment = {{"DISPLAY", display_.name()},
                                               {"DBUS_SESSION_BUS_ADDRESS", bus_.address()},
                                               {"XDG_CONFIG_HOME", folder_.path().string()},
                                               {"XDG_RUNTIME_DIR", folder_.path().string()}}});
    while (player.received().size() == before) {
      if (Clock::now() - start > patience) throw std::runtime_error("no key was served");
      keys_.tap(keycode);
      waitUntil([&] { return player.received().size() != before; }, 1ms, 1ms);
    }
    return Clock::now() - start;
  }

  /// For players of the benchmark's own process.
  const std::string& busAddress() const { return bus_.address(); }

 private:
  const PrivateDisplay display_;
  const PrivateBus bus_;
  const TemporaryFolder folder_;
  KeyPresser keys_{display_.name()};
};

void startToFirstKey(benchmark::State& state) {
  Desk desk;
  ::setenv("DBUS_SESSION_BUS_ADDRESS", desk.busAddress().c_str(), 1);
  const FakePlayer talmosPlayer({.name = "audacious"});
  const FakePlayer leastsPlayer({.name = "floor"});
  const std::uint8_t talmosKey = desk.keys().keycode("XF86AudioNext");
  const std::uint8_t leastsKey = desk.keys().keycode("XF86AudioStop");
  Samples talmo;
  Samples least;
  for (auto _ : state) {
    least.add(
        desk.startToKey({TALMO_LEAST_KEYS, std::to_string(leastsKey)}, leastsKey, leastsPlayer));
    talmo.add(desk.startToKey({TALMO_PROGRAM}, talmosKey, talmosPlayer));
    state.SetIterationTime(talmo.last());
  }
  state.counters["talmo_ms"] = talmo.median() * 1e3;
  state.counters["talmo_95_ms"] = talmo.quantile(0.95) * 1e3;
  state.counters["least_ms"] = least.median() * 1e3;
  state.counters["ratio"] = talmo.median() / least.median();
}

BENCHMARK(startToFirstKey)
    ->Name("start to first key served")
    ->UseManualTime()
    ->Iterations(40)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace talmo::test

BENCHMARK_MAIN();
