// What the panel costs: from a click on the icon to the first painted frame, the memory of the
// process, and how often it wakes up. Each beside the least program with the same toolkit that has
// an icon and an empty window, on the same private desktop and in turns with it.

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/types.h>
#include <utility>

#include <benchmark/benchmark.h>

#include "bench/Samples.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/MousePresser.h"
#include "tests/support/PrivateDesktop.h"
#include "tests/support/PrivateTray.h"
#include "tests/support/ProcessUsage.h"
#include "tests/support/ScreenPicture.h"
#include "tests/support/ScreenWindows.h"
#include "tests/support/TalmoProcess.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto patience = 30s;
constexpr auto watched = 60s;
constexpr auto comingToRest = 15s;

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
      const bool isTip = window.isOfType("_NET_WM_WINDOW_TYPE_TOOLTIP");
      if (!window.isManaged && !isTip && window.area.height > 1) return window.area;
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

  ProcessUsage usage() const { return ProcessUsage(pid()); }

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

/// Starts Talmo; not for the first time, which would show a window too.
Subject startTalmo(const PrivateDesktop& desktop) {
  TalmoProcess::select(desktop, std::nullopt);
  return {desktop, TALMO_PROGRAM};
}

/// Talmo with a player that says it plays, and the least program.
struct Desk {
  PrivateDesktop desktop;
  PrivateTray tray{desktop};
  FakePlayerProcess player{desktop, "audacious"};
  MousePresser mouse{desktop.displayName()};
  Subject talmo = startTalmo(desktop);
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

/// What is the process's own, which is compared, and all of it that is in memory.
void noteMemory(benchmark::State& state, const std::string& when, const Subject& talmo,
                const Subject& least) {
  const double own = talmo.usage().ownMemory();
  state.counters[when + "_MB"] = own / 1024;
  state.counters[when + "_ratio"] = own / least.usage().ownMemory();
  state.counters[when + "_resident_MB"] = talmo.usage().residentMemory() / 1024;
}

void memory(benchmark::State& state) {
  Desk desk;
  for (auto _ : state) {
    noteMemory(state, "never", desk.talmo, desk.least);
    desk.talmo.open(desk.mouse);
    noteMemory(state, "opened", desk.talmo, desk.least);
    desk.talmo.close(desk.mouse);
    // Whatever is left when it was used for a while, and for longer.
    const auto use = [&] {
      for (int time = 0; time < 20; ++time) {
        desk.talmo.open(desk.mouse);
        desk.talmo.close(desk.mouse);
      }
    };
    use();
    noteMemory(state, "closed", desk.talmo, desk.least);
    use();
    noteMemory(state, "closed_again", desk.talmo, desk.least);
    state.counters["least_MB"] = desk.least.usage().ownMemory() / 1024;
    state.counters["least_resident_MB"] = desk.least.usage().residentMemory() / 1024;
  }
}

/// Counts how often a program wakes up, by the names of its threads. A thread that ends takes its
/// last count along, so it is looked at often.
class WakeUps {
 public:
  explicit WakeUps(const Subject& subject)
      : usage_(subject.usage()), start_(Clock::now()), last_(usage_.threads()) {}

  void look() {
    const std::map<pid_t, ProcessUsage::Thread> now = usage_.threads();
    for (const auto& [number, thread] : now) {
      const auto before = last_.find(number);
      sums_[thread.name] +=
          before == last_.end() ? thread.sleeps : thread.sleeps - before->second.sleeps;
    }
    last_ = now;
    end_ = Clock::now();
  }

  /// Per second, from the first look to the last: of all threads, and of each that woke up.
  void note(benchmark::State& state, const std::string& when) const {
    const double seconds = std::chrono::duration<double>(end_ - start_).count();
    double all = 0;
    for (const auto& [thread, count] : sums_) {
      all += count;
      if (count > 0) state.counters[when + "_" + thread] = count / seconds;
    }
    state.counters[when] = all / seconds;
  }

 private:
  const ProcessUsage usage_;
  const Clock::time_point start_;
  Clock::time_point end_;
  std::map<pid_t, ProcessUsage::Thread> last_;
  std::map<std::string, double> sums_;
};

/// How often each of the two wakes up in a second of the same time.
void watchWakeUps(benchmark::State& state, const Desk& desk, const std::string& when) {
  WakeUps talmo(desk.talmo);
  WakeUps least(desk.least);
  waitUntil(
      [&] {
        talmo.look();
        least.look();
        return false;
      },
      watched, 200ms);
  talmo.note(state, when);
  least.note(state, "least_" + when);
}

void wakeUpsPerSecond(benchmark::State& state) {
  Desk desk;
  warmUp(desk);
  // The threads that worked for the panel end when they have had nothing to do for a while.
  waitUntil([] { return false; }, comingToRest, 1s);
  for (auto _ : state) {
    watchWakeUps(state, desk, "closed");
    desk.least.open(desk.mouse);
    desk.talmo.open(desk.mouse);
    watchWakeUps(state, desk, "open");
    desk.talmo.close(desk.mouse);
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
