// From a press of a media key to the handler in a web player's page, by each way that a key takes:
// through the built program and a real browser. Beside it the least that could do it: the page's
// own button, clicked by one command over the browser's debugging socket. Both end when the page's
// word of it, which its handler gives before anything else, has come over that socket; so what the
// word takes is in both. They alternate, so that whatever the machine is doing meets both.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

#include <benchmark/benchmark.h>

#include "bench/PageWatch.h"
#include "bench/Samples.h"
#include "tests/desktop/web/TalmoCopy.h"
#include "tests/desktop/web/WebStage.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/TalmoProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto key = "XF86AudioPlay";
constexpr auto button = ".ytp-play-button";

struct Way {
  /// What Talmo logs for a press that takes it, and what the page tells of that press.
  const char* logged;
  const char* told;
  /// Whether the page plays, so that it has the media session.
  bool plays = false;
  /// How long each press waits for the one before to be over and done with.
  Clock::duration rest = 500ms;
  /// Whether another tab is in front, and the browser runs no scripts for Talmo.
  bool isLocked = false;
};

constexpr Way fastAdapter{.logged = "route=adapter(fast) ", .told = "action pause", .plays = true};
// Talmo trusts what it knows of the session's owner for fifteen seconds.
constexpr Way confirmedAdapter{
    .logged = "route=adapter ", .told = "action pause", .plays = true, .rest = 15500ms};
constexpr Way javaScript{.logged = "route=js ", .told = "click .ytp-play-button"};
constexpr Way keyStroke{.logged = "route=keystroke ", .told = "key KeyK", .isLocked = true};

/// The built osascript, as if the browser refused to run scripts, which Chromium never does. The
/// refusal comes sooner than osascript's own would.
constexpr const char* refusingScripts = R"sh(case "$2" in *"execute tgt javascript"*)
  echo 'execution error: Allow JavaScript from Apple Events is off (12)' >&2
  exit 1
esac
exec "$osascript" "$@"
)sh";

void pressToPage(benchmark::State& state, const Way& way) {
  const ImitationPage page{
      .name = "video", .tracks = {"First light"}, .artist = "Ada", .plays = way.plays};
  WebStage stage;
  const std::string tab = stage.open(page, page.youTube());
  if (way.plays && !waitUntil([&] { return stage.session().playbackStatus() == "Playing"; })) {
    throw std::runtime_error("the page has no media session");
  }
  PageWatch watch({.port = static_cast<std::uint16_t>(stage.browser().port()),
                   .path = stage.browser().socketPath()},
                  tab);
  std::optional<std::string> front;
  std::optional<TalmoCopy> copy;
  if (way.isLocked) {
    front = stage.tabs().open("about:blank");
    watch.waitFor("hidden");
    copy.emplace(refusingScripts);
  }
  TalmoProcess::select(stage.desktop(), "youtube-web");
  const TalmoProcess talmo(stage.desktop(), copy ? copy->program() : TALMO_PROGRAM);
  KeyPresser keys(stage.desktop().displayName());

  std::size_t presses = 0;
  const auto press = [&] {
    const auto start = Clock::now();
    keys.tap(key);
    const auto end = watch.waitFor(way.told);
    if (!talmo.waitForLines("route=", ++presses)) throw std::runtime_error(talmo.log());
    return end - start;
  };
  const auto click = [&] {
    const auto start = Clock::now();
    watch.click(button);
    return watch.waitFor("click .ytp-play-button") - start;
  };
  const auto rest = [&] {
    if (front) {
      stage.tabs().activate(*front);
      watch.waitFor("hidden");
    }
    std::this_thread::sleep_for(way.rest);
  };

  // With the first press Talmo looks for the tab.
  press();
  Samples pressed;
  Samples clicked;
  for (auto _ : state) {
    rest();
    clicked.add(click());
    pressed.add(press());
    state.SetIterationTime(pressed.last());
    if (talmo.lines("route=").back().find(way.logged) == std::string::npos) {
      throw std::runtime_error("another way was taken: " + talmo.log());
    }
  }
  state.counters["press_ms"] = pressed.median() * 1e3;
  state.counters["press_p95_ms"] = pressed.quantile(0.95) * 1e3;
  state.counters["click_ms"] = clicked.median() * 1e3;
  state.counters["click_p95_ms"] = clicked.quantile(0.95) * 1e3;
  state.counters["ratio"] = pressed.median() / clicked.median();
}

void measure(benchmark::State& state, const Way& way) {
  try {
    pressToPage(state, way);
  } catch (const std::exception& error) {
    state.SkipWithError(error.what());
  }
}

BENCHMARK_CAPTURE(measure, fastAdapter, fastAdapter)
    ->Name("fast adapter")
    ->UseManualTime()
    ->Iterations(40)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(measure, confirmedAdapter, confirmedAdapter)
    ->Name("confirmed adapter")
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(measure, javaScript, javaScript)
    ->Name("JavaScript")
    ->UseManualTime()
    ->Iterations(40)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(measure, keyStroke, keyStroke)
    ->Name("focus and key")
    ->UseManualTime()
    ->Iterations(40)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace talmo::test

BENCHMARK_MAIN();
