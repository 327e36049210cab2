// Reading what a scan of a browser wrote: lines of addresses and titles to matches. Beside it, the
// same text cut at its line feeds, which is the least that reading it can cost.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "web/WebTabScanner.h"

namespace talmo {
namespace {

/// Lines as browsers write them; each third is a page on which nothing plays.
std::string scanOutput(std::int64_t lines) {
  std::string output;
  for (std::int64_t line = 0; line < lines; ++line) {
    const std::string number = std::to_string(line);
    switch (line % 3) {
      case 0:
        output += "https://www.youtube.com/watch?v=dQw4w9WgX" + number +
                  "&list=PLFgquLnL59alCl_2TQvOiD5Vgm1hCaGSI\t(" + number +
                  ") A title of usual length - YouTube\n";
        break;
      case 1:
        output += "https://soundcloud.com/an-artist/a-track-" + number +
                  "\tStream A track by An artist | Listen online for free on SoundCloud\n";
        break;
      default:
        output += "https://www.youtube.com/results?search_query=" + number + "\tYouTube\n";
    }
  }
  return output;
}

void setRates(benchmark::State& state, const std::string& output) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(output.size()));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void parse(benchmark::State& state) {
  const std::string output = scanOutput(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(WebTabScanner::parse(output, "com.google.Chrome", "Google Chrome"));
  }
  setRates(state, output);
}

void split(benchmark::State& state) {
  const std::string output = scanOutput(state.range(0));
  for (auto _ : state) {
    std::vector<std::string_view> lines;
    std::string_view rest = output;
    for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
      lines.push_back(rest.substr(0, end));
      rest.remove_prefix(end + 1);
    }
    benchmark::DoNotOptimize(lines);
  }
  setRates(state, output);
}

BENCHMARK(parse)->Name("parse")->RangeMultiplier(10)->Range(1, 1000);
BENCHMARK(split)->Name("floor: split at line feeds")->RangeMultiplier(10)->Range(1, 1000);

}  // namespace
}  // namespace talmo

BENCHMARK_MAIN();
