// The wall time of one `get` of the adapter, with a player on a private bus, beside an empty start
// of the same perl. The runs alternate, so that whatever the machine is doing meets both.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/linux/processes/LinuxChildProcesses.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

using Clock = std::chrono::steady_clock;

/// Seconds from the launch to the end of a run, whose output is read. Throws when it fails.
double timeOf(LinuxChildProcesses& processes, const std::vector<std::string>& arguments,
              std::string& output) {
  const auto start = Clock::now();
  const std::shared_ptr<ChildProcess> process =
      processes.make({.executable = "/usr/bin/perl", .arguments = arguments});
  if (const auto error = process->launch()) throw std::runtime_error(*error);
  output = process->standardOutput()->readToEnd();
  process->waitUntilExit();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

void get(benchmark::State& state) {
  const PrivateBus bus;
  const TemporaryFolder folder;
  ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);
  ::setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
  const FakePlayer player({.name = "audacious"});
  LinuxChildProcesses processes;
  std::string output;
  std::vector<double> adapterSeconds;
  std::vector<double> emptySeconds;
  for (auto _ : state) {
    emptySeconds.push_back(timeOf(processes, {"-e", "1"}, output));
    adapterSeconds.push_back(timeOf(
        processes, {TALMO_ADAPTER_SCRIPT, TALMO_ADAPTER_FRAMEWORK, "get", "--no-artwork"}, output));
    if (output.find("org.atheme.audacious") == std::string::npos) {
      state.SkipWithError(("not the player's answer: " + output).c_str());
      return;
    }
    state.SetIterationTime(adapterSeconds.back());
  }
  state.counters["get_ms"] = median(adapterSeconds) * 1e3;
  state.counters["empty_perl_ms"] = median(emptySeconds) * 1e3;
  state.counters["ratio"] = median(adapterSeconds) / median(emptySeconds);
}

BENCHMARK(get)
    ->Name("one get of the adapter")
    ->UseManualTime()
    ->Iterations(300)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace talmo::test

BENCHMARK_MAIN();
