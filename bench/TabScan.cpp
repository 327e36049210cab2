// One scan for web players' tabs, from the list of running browsers to the matches, by the built
// osascript. A tenth of the tabs match. Beside it, in turns, so that whatever the machine is doing
// meets all: a part of it, the list of running browsers; a start of osascript with a script that
// does nothing; and one question to the same browser (which tabs it has) over a connection that
// stands.
//
// `browser` is a real one. `scripted browser` is a debugging socket that answers as one does, for
// more tabs than a machine should have to show.

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/Samples.h"
#include "platform/linux/applications/ProcessTable.h"
#include "platform/linux/browsers/DebuggingConnection.h"
#include "tests/backend/browsers/FakeBrowser.h"
#include "tests/backend/browsers/PretendedBrowser.h"
#include "tests/desktop/PlatformOnDesktop.h"
#include "tests/desktop/web/WebStage.h"
#include "tests/support/WaitUntil.h"
#include "web/SupportedBrowsers.h"
#include "web/WebTabScanner.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Json = nlohmann::json;

constexpr Duration patience = 10s;

struct Tab {
  std::string url;
  std::string title;
  /// Whether it is a web player's.
  bool matches = false;
};

ImitationPage playerPage(std::size_t number) {
  return {.name = "page" + std::to_string(number), .tracks = {"Track " + std::to_string(number)}};
}

/// The first of each ten is a web player's.
std::vector<Tab> makeTabs(std::size_t count) {
  std::vector<Tab> tabs;
  for (std::size_t number = 0; number < count; ++number) {
    const ImitationPage page = playerPage(number);
    const std::string title = "Notes " + std::to_string(number);
    if (number % 10 == 0) {
      tabs.push_back(
          {.url = page.youTube(), .title = page.tracks.front() + " - YouTube", .matches = true});
    } else {
      tabs.push_back({.url = "data:text/html,<title>" + title + "</title>", .title = title});
    }
  }
  return tabs;
}

/// What a scan of these finds: it ends after 51.
std::size_t matchesIn(const std::vector<Tab>& tabs) {
  return static_cast<std::size_t>(
      std::min<std::ptrdiff_t>(std::ranges::count_if(tabs, &Tab::matches), 51));
}

using Time = std::optional<Clock::duration>;

/// How long the work takes; nothing when it fails.
template <class Work>
Time timeOf(const Work& work) {
  const auto start = Clock::now();
  const bool isDone = work();
  const auto end = Clock::now();
  return isDone ? std::optional(end - start) : std::nullopt;
}

Time scan(std::size_t matches) {
  return timeOf([&] { return WebTabScanner::scan().size() == matches; });
}

Time findBrowsers() {
  return timeOf([] { return SupportedBrowsers::runningFrontmostFirst(std::nullopt).size() == 1; });
}

Time startOsascript() {
  return timeOf([] {
    const auto result = WebTabScanner::runOsascript("return \"\"", patience);
    return result && result->status == 0;
  });
}

/// Which tabs it has; the connection is made before, and goes after.
Time ask(const DebuggingAddress& address) {
  auto socket = DebuggingSocket::connect(address, Clock::now() + patience);
  if (!socket) return std::nullopt;
  DebuggingConnection connection(std::move(socket));
  return timeOf([&] {
    const auto answer = connection.call({.method = "Target.getTargets"}, Clock::now() + patience);
    return std::holds_alternative<Json>(answer);
  });
}

/// `address` is the socket's of the browser that has these tabs.
void measure(benchmark::State& state, const PrivateDesktop& desktop,
             const DebuggingAddress& address, const std::vector<Tab>& tabs) {
  PlatformOnDesktop platform(desktop, std::filesystem::path(TALMO_PROGRAM).parent_path());
  // On a queue, where a scan may wait.
  const auto measured = [&](const std::function<Time()>& work) {
    const auto time = std::make_shared<Time>();
    platform.runOnQueue([time, work] { *time = work(); });
    if (!*time) throw std::runtime_error("it takes too long or finds something else");
    return **time;
  };
  const auto scanAll = [matches = matchesIn(tabs)] { return scan(matches); };

  // The first one asks for the consent, which is kept.
  measured(scanAll);
  Samples scans;
  Samples lists;
  Samples starts;
  Samples questions;
  for (auto _ : state) {
    lists.add(measured(findBrowsers));
    starts.add(measured(startOsascript));
    questions.add(measured([address] { return ask(address); }));
    scans.add(measured(scanAll));
    state.SetIterationTime(scans.last());
  }
  state.counters["scan_ms"] = scans.median() * 1e3;
  state.counters["scan_p95_ms"] = scans.quantile(0.95) * 1e3;
  state.counters["osascript_ms"] = starts.median() * 1e3;
  state.counters["browsers_ms"] = lists.median() * 1e3;
  state.counters["question_ms"] = questions.median() * 1e3;
  state.counters["osascripts"] = scans.median() / starts.median();
  state.counters["questions"] = scans.median() / questions.median();
}

bool descends(ProcessIdentifier process, ProcessIdentifier ancestor) {
  while (process > 1 && process != ancestor) process = ProcessTable::parent(process);
  return process == ancestor;
}

/// What the process and those that it started need in memory, of shared pages their share.
double megabytes(ProcessIdentifier root) {
  double kilobytes = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const int process = std::atoi(entry.path().filename().c_str());
    if (!descends(process, root)) continue;
    std::ifstream file(entry.path() / "smaps_rollup");
    for (std::string word; file >> word;) {
      double value = 0;
      if (word == "Pss:" && file >> value) kilobytes += value;
    }
  }
  return kilobytes / 1024;
}

void scanBrowser(benchmark::State& state) {
  WebStage stage;
  const std::vector<Tab> tabs = makeTabs(static_cast<std::size_t>(state.range(0)));
  const std::string blank = stage.tabs().all().front().id;
  for (const Tab& tab : tabs) stage.tabs().open(tab.url);
  stage.tabs().close(blank);
  const auto isShown = [&] {
    const auto titled = [](const BrowserTabs::Tab& one) {
      return one.title.ends_with(" - YouTube") || one.title.starts_with("Notes ");
    };
    const std::vector<BrowserTabs::Tab> all = stage.tabs().all();
    return all.size() == tabs.size() && std::ranges::all_of(all, titled);
  };
  if (!waitUntil(isShown, 120s, 200ms)) throw std::runtime_error("not all tabs are shown");
  state.counters["browser_MB"] = megabytes(stage.browser().pid());
  measure(state, stage.desktop(),
          {.port = static_cast<std::uint16_t>(stage.browser().port()),
           .path = stage.browser().socketPath()},
          tabs);
}

/// The answer of a browser with these tabs, all of them in one window. A tab's id is its number.
FakeBrowser::Reply answer(const Json& request, const std::vector<Tab>& tabs) {
  const auto describe = [&](std::size_t number) {
    return Json{{"targetId", std::to_string(number)},
                {"type", "page"},
                {"title", tabs[number].title},
                {"url", tabs[number].url}};
  };
  const std::string method = request.at("method");
  if (method == "Target.getTargets") {
    Json targets = Json::array();
    for (std::size_t number = 0; number < tabs.size(); ++number) {
      targets.push_back(describe(number));
    }
    return FakeBrowser::result(request, {{"targetInfos", targets}});
  }
  if (method == "Browser.getWindowForTarget") {
    return FakeBrowser::result(request, {{"windowId", 1}, {"bounds", Json::object()}});
  }
  const std::string id = request.at("params").at("targetId");
  return FakeBrowser::result(request, {{"targetInfo", describe(std::stoul(id))}});
}

void scanScripted(benchmark::State& state) {
  const PrivateDesktop desktop;
  const std::vector<Tab> tabs = makeTabs(static_cast<std::size_t>(state.range(0)));
  const FakeBrowser socket({.answer = [&](const Json& request) { return answer(request, tabs); }});
  const std::filesystem::path profile = desktop.folder() / "profile";
  std::filesystem::create_directories(profile);
  std::ofstream(profile / "DevToolsActivePort") << socket.address().port << '\n'
                                                << socket.address().path;
  const PretendedBrowser browser(
      desktop.folder() / "chromium",
      {"--user-data-dir=" + profile.string(), "--remote-debugging-port=0"});
  measure(state, desktop, socket.address(), tabs);
}

template <void (*run)(benchmark::State&)>
void orError(benchmark::State& state) {
  try {
    run(state);
  } catch (const std::exception& error) {
    state.SkipWithError(error.what());
  }
}

BENCHMARK(orError<scanBrowser>)
    ->Name("scan: browser")
    ->RangeMultiplier(10)
    ->Range(1, 100)
    ->UseManualTime()
    ->Iterations(50)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(orError<scanScripted>)
    ->Name("scan: scripted browser")
    ->RangeMultiplier(10)
    ->Range(1, 1000)
    ->UseManualTime()
    ->Iterations(50)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace talmo::test

BENCHMARK_MAIN();
