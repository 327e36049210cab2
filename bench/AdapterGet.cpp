// The wall time of one `get` of the adapter, with a player on a private bus, beside an empty start
// of the same perl. The runs alternate, so that whatever the machine is doing meets both.

#include <chrono>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/Samples.h"
#include "platform/linux/processes/LinuxChildProcesses.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

using Clock = std::chrono::steady_clock;

/// From the launch to the end of a run, whose output is read. Throws when it fails.
Clock::duration timeOf(LinuxChildProcesses& processes, const std::vector<std::string>& arguments,
                       std::string& output) {
  const auto start = Clock::now();
  const std::shared_ptr<ChildProcess> process =
      processes.make({.executable = "/usr/bin/perl", .arguments = arguments});
  if (const auto error = process->launch()) throw std::runtime_error(*error);
  output = process->standardOutput()->readToEnd();
  process->waitUntilExit();
  return Clock::now() - start;
}

void get(benchmark::State& state) {
  const PrivateBus bus;
  const TemporaryFolder folder;
  ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);
  ::setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
  const FakePlayer player({.name = "audacious"});
  LinuxChildProcesses processes;
  std::string output;
  Samples gets;
  Samples starts;
  for (auto _ : state) {
    starts.add(timeOf(processes, {"-e", "1"}, output));
    gets.add(timeOf(
        processes, {TALMO_ADAPTER_SCRIPT, TALMO_ADAPTER_FRAMEWORK, "get", "--no-artwork"}, output));
    if (output.find("org.atheme.audacious") == std::string::npos) {
      state.SkipWithError(("not the player's answer: " + output).c_str());
      return;
    }
    state.SetIterationTime(gets.last());
  }
  state.counters["get_ms"] = gets.median() * 1e3;
  state.counters["empty_perl_ms"] = starts.median() * 1e3;
  state.counters["ratio"] = gets.median() / starts.median();
}

BENCHMARK(get)
    ->Name("one get of the adapter")
    ->UseManualTime()
    ->Iterations(300)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace talmo::test

BENCHMARK_MAIN();
