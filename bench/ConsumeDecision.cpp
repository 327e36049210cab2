// What the tap thread spends on one media-key event, beside two uncontended locks, which is the
// least that reading the routing state can cost. `allocations` is per event.

#include <memory>
#include <mutex>
#include <string>

#include <benchmark/benchmark.h>

#include "app/AppCoordinator.h"
#include "platform/simulated/SimulatedDispatch.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/support/AllocationCounter.h"

namespace talmo {
namespace {

class MediaKeyEvent : public TapEvent {
 public:
  explicit MediaKeyEvent(std::int64_t data1) : data1_(data1) {}
  std::uint32_t type() const override { return 14; }
  std::optional<SystemDefinedEvent> systemDefined() const override {
    return SystemDefinedEvent{.subtype = 8, .data1 = data1_};
  }

 private:
  const std::int64_t data1_;
};

constexpr std::int64_t volumeUp = 0x00000A00;
constexpr std::int64_t press = 0x00100A00;
constexpr std::int64_t repeat = 0x00100A01;

/// One event after another through the tap of a coordinator with that selection.
void decide(benchmark::State& state, const char* selection, std::int64_t data1) {
  auto dispatch = std::make_unique<SimulatedDispatch>();
  SimulatedDispatch& time = *dispatch;
  SimulatedPlatform machine(std::move(dispatch));
  machine.userDefaults().setString("selectedTargetAppID", selection);
  machine.userDefaults().setBoolean("hasCompletedOnboarding", true);
  const auto coordinator = AppCoordinator::make();
  coordinator->start();
  MediaKeyEvent event(data1);
  std::size_t allocated = 0;
  std::int64_t sinceIdle = 0;
  for (auto _ : state) {
    const std::size_t before = test::allocations();
    benchmark::DoNotOptimize(coordinator->tap().handle(event));
    allocated += test::allocations() - before;
    if (data1 == press && ++sinceIdle == 1000) {
      // The queued commands are not what is measured here.
      state.PauseTiming();
      time.runUntilIdle();
      sinceIdle = 0;
      state.ResumeTiming();
    }
  }
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(allocated), benchmark::Counter::kAvgIterations);
}

void twoLocks(benchmark::State& state) {
  std::mutex mutex;
  int value = 0;
  for (auto _ : state) {
    for (int round = 0; round < 2; ++round) {
      const std::lock_guard lock(mutex);
      benchmark::DoNotOptimize(++value);
    }
  }
}

BENCHMARK(twoLocks)->Name("floor: two locks");
BENCHMARK_CAPTURE(decide, off, "gone", press)->Name("pass through, routing off");
BENCHMARK_CAPTURE(decide, other, "spotify", volumeUp)->Name("pass through, another key");
BENCHMARK_CAPTURE(decide, repeat, "spotify", repeat)->Name("consume a repeat");
BENCHMARK_CAPTURE(decide, press, "spotify", press)->Name("consume a press and queue its command");

}  // namespace
}  // namespace talmo

BENCHMARK_MAIN();
