// What the panel costs: from a click on the icon to the first painted frame, the memory of the
// process, and how often it wakes up. Each beside the least program with the same toolkit that has
// an icon and an empty window, on the same private desktop and in turns with it.

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>

#include "bench/Samples.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/MousePresser.h"
#include "tests/support/PrivateDesktop.h"
#include "tests/support/PrivateTray.h"
#include "tests/support/ScreenPicture.h"
#include "tests/support/ScreenWindows.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto patience = 30s;
constexpr auto watched = 20s;

/// Black, as a private desktop is where nothing is.
constexpr std::uint32_t emptyScreen = 0;

/// A program with an icon in the tray that shows a window.
class Subject {
 public:
  /// Throws when no icon comes.
  Subject(const PrivateDesktop& desktop, const std::string& program)
      : display_(desktop.displayName()), windows_(display_), process_(desktop.start({program})) {
    require([this] { return iconArea().has_value(); }, program + " has no icon");
  }

  pid_t pid() const { return process_->pid(); }

  /// Where the icon is; the tray moves it when another one comes.
  std::optional<PixelArea> iconArea() {
    for (const ScreenWindows::Window& window : windows_.of(pid())) {
      if (!window.isManaged && window.area.height > 1) return window.area;
    }
    return std::nullopt;
  }

  /// The same when the tray has come to rest.
  PixelArea settledIcon() {
    std::optional<PixelArea> last;
    require(
        [&] {
          const std::optional<PixelArea> before = std::exchange(last, iconArea());
          return last && last == before;
        },
        "the icon does not come to rest");
    return *last;
  }

  std::optional<PixelArea> windowArea() {
    for (const ScreenWindows::Window& window : windows_.of(pid())) {
      if (window.isManaged) return window.area;
    }
    return std::nullopt;
  }

  void click(MousePresser& mouse) {
    const PixelArea icon = settledIcon();
    mouse.click(icon.middleX(), icon.middleY());
  }

  void open(MousePresser& mouse) {
    click(mouse);
    require([this] { return windowArea().has_value(); }, "no window came");
  }

  void close(MousePresser& mouse) {
    click(mouse);
    require([this] { return !windowArea(); }, "the window stays");
  }

  /// From a click to a colour at a place inside the window.
  Clock::duration clickToFrame(MousePresser& mouse, const PixelArea& place) {
    const PixelArea icon = settledIcon();
    // The window manager takes its frame away after the window has gone.
    require([&] { return colourAt(place) == emptyScreen; }, "the window's place is not empty");
    const auto start = Clock::now();
    mouse.click(icon.middleX(), icon.middleY());
    while (colourAt(place) == emptyScreen) {
      if (Clock::now() - start > patience) throw std::runtime_error("nothing was painted");
    }
    return Clock::now() - start;
  }

  /// In kilobytes: what is the process's alone, and its share of what it has with others.
  double memory() const {
    std::ifstream file("/proc/" + std::to_string(pid()) + "/smaps_rollup");
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with("Pss:")) return std::stod(line.substr(4));
    }
    throw std::runtime_error("the system does not tell the memory");
  }

  /// How often each of its threads has gone to sleep so far, which is how often it woke up.
  std::map<std::string, double> sleeps() const {
    const std::string key = "voluntary_ctxt_switches:";
    std::map<std::string, double> counts;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(pid()) + "/task")) {
      std::ifstream file(thread.path() / "status");
      for (std::string line; std::getline(file, line);) {
        if (line.starts_with(key)) {
          counts[thread.path().filename()] = std::stod(line.substr(key.size()));
        }
      }
    }
    return counts;
  }

 private:
  static void require(const std::function<bool()>& condition, const std::string& words) {
    if (!waitUntil(condition, patience, 20ms)) throw std::runtime_error(words);
  }

  std::uint32_t colourAt(const PixelArea& place) const {
    const PixelArea pixel{.x = place.middleX(), .y = place.middleY(), .width = 1, .height = 1};
    return ScreenPicture::take(display_, pixel).at(pixel.x, pixel.y);
  }

  std::string display_;
  ScreenWindows windows_;
  std::unique_ptr<TestProcess> process_;
};

/// Talmo with a player that says it plays, and the least program.
struct Desk {
  PrivateDesktop desktop;
  PrivateTray tray{desktop};
  FakePlayerProcess player{desktop, "audacious"};
  MousePresser mouse{desktop.displayName()};
  Subject talmo{desktop, TALMO_PROGRAM};
  Subject least{desktop, TALMO_LEAST_PANEL};
};

/// Opens and closes both once, so that what is made once has been made; where their windows are.
std::pair<PixelArea, PixelArea> warmUp(Desk& desk) {
  desk.talmo.open(desk.mouse);
  const PixelArea panel = desk.talmo.windowArea().value();
  desk.talmo.close(desk.mouse);
  desk.least.open(desk.mouse);
  const PixelArea window = desk.least.windowArea().value();
  desk.least.close(desk.mouse);
  return {panel, window};
}

void clickToFrame(benchmark::State& state) {
  Desk desk;
  const auto [panel, window] = warmUp(desk);
  Samples talmo;
  Samples least;
  for (auto _ : state) {
    least.add(desk.least.clickToFrame(desk.mouse, window));
    desk.least.close(desk.mouse);
    talmo.add(desk.talmo.clickToFrame(desk.mouse, panel));
    desk.talmo.close(desk.mouse);
    state.SetIterationTime(talmo.last());
  }
  state.counters["talmo_ms"] = talmo.median() * 1e3;
  state.counters["talmo_95_ms"] = talmo.quantile(0.95) * 1e3;
  state.counters["least_ms"] = least.median() * 1e3;
  state.counters["ratio"] = talmo.median() / least.median();
}

void memory(benchmark::State& state) {
  Desk desk;
  for (auto _ : state) {
    const double never = desk.talmo.memory();
    const double least = desk.least.memory();
    desk.talmo.open(desk.mouse);
    const double opened = desk.talmo.memory();
    desk.talmo.close(desk.mouse);
    // Whatever is left when it was used for a while.
    for (int time = 0; time < 20; ++time) {
      desk.talmo.open(desk.mouse);
      desk.talmo.close(desk.mouse);
    }
    const double closed = desk.talmo.memory();
    state.counters["least_MB"] = least / 1024;
    state.counters["never_MB"] = never / 1024;
    state.counters["opened_MB"] = opened / 1024;
    state.counters["closed_MB"] = closed / 1024;
    state.counters["never_ratio"] = never / least;
    state.counters["opened_ratio"] = opened / least;
    state.counters["closed_ratio"] = closed / least;
  }
}

/// Counts how often a program wakes up. A thread that ends takes its last count along, so it is
/// looked at often.
class WakeUps {
 public:
  explicit WakeUps(const Subject& subject) : subject_(subject), last_(subject.sleeps()) {}

  void look() {
    const std::map<std::string, double> now = subject_.sleeps();
    for (const auto& [thread, count] : now) {
      const auto before = last_.find(thread);
      sum_ += before == last_.end() ? count : count - before->second;
    }
    last_ = now;
  }

  double sum() const { return sum_; }

 private:
  const Subject& subject_;
  std::map<std::string, double> last_;
  double sum_ = 0;
};

/// How often each of the two wakes up in a second of the same time.
std::pair<double, double> wakeUps(const Desk& desk) {
  WakeUps talmo(desk.talmo);
  WakeUps least(desk.least);
  const auto start = Clock::now();
  waitUntil(
      [&] {
        talmo.look();
        least.look();
        return false;
      },
      watched, 200ms);
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  return {talmo.sum() / seconds, least.sum() / seconds};
}

void wakeUpsPerSecond(benchmark::State& state) {
  Desk desk;
  warmUp(desk);
  for (auto _ : state) {
    const auto [closed, leastClosed] = wakeUps(desk);
    desk.least.open(desk.mouse);
    desk.talmo.open(desk.mouse);
    const auto [opened, leastOpened] = wakeUps(desk);
    desk.talmo.close(desk.mouse);
    const auto [again, leastAgain] = wakeUps(desk);
    state.counters["closed"] = closed;
    state.counters["open"] = opened;
    state.counters["closed_again"] = again;
    state.counters["least_closed"] = leastClosed;
    state.counters["least_open"] = leastOpened;
  }
}

BENCHMARK(clickToFrame)
    ->Name("click to first painted frame")
    ->UseManualTime()
    ->Iterations(100)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(memory)->Name("memory")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(wakeUpsPerSecond)
    ->Name("wake-ups per second")
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace talmo::test

BENCHMARK_MAIN();
