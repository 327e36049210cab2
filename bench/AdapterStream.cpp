// Bytes per second through the consumer of the adapter's stream: from the pieces that a pipe gives
// to the snapshot on the main thread. Beside it, on the same bytes, the JSON library alone (on
// whole lines that lie ready) and a plain copy of the memory.
//
// Pictures are not decoded here: what is measured is the stream, not the image library.

#include <algorithm>
#include <chrono>
#include <cstring>
#include <memory>
#include <optional>
#include <random>
#include <simdjson.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "nowplaying/AdapterNowPlaying.h"
#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/simulated/SimulatedBundle.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {
namespace {

/// What one read of a pipe gives at most.
constexpr std::size_t pieceSize = std::size_t{64} * 1024;

/// A pipe whose content lies ready.
class ReadyPipe : public OutputPipe {
 public:
  void setReadabilityHandler(std::function<void(OutputPipe&)> handler) override {
    handler_ = std::move(handler);
  }
  std::string availableData() override {
    const std::string_view piece = content_.substr(0, pieceSize);
    content_.remove_prefix(piece.size());
    return std::string(piece);
  }
  std::string readToEnd() override { return {}; }

  /// Hands over everything, piece by piece, as the system does.
  void deliver(std::string_view content) {
    content_ = content;
    while (!content_.empty()) handler_(*this);
  }

 private:
  std::function<void(OutputPipe&)> handler_;
  std::string_view content_;
};

class ReadyProcess : public ChildProcess {
 public:
  std::optional<std::string> launch() override { return std::nullopt; }
  bool isRunning() const override { return false; }
  void terminate() override {}
  void waitUntilExit() override {}
  void setTerminationHandler(std::function<void(const ChildTermination&)>) override {}
  std::shared_ptr<OutputPipe> standardOutput() override { return output; }
  std::shared_ptr<OutputPipe> standardError() override { return error; }

  const std::shared_ptr<ReadyPipe> output = std::make_shared<ReadyPipe>();
  const std::shared_ptr<ReadyPipe> error = std::make_shared<ReadyPipe>();
};

class ReadyProcesses : public ChildProcesses {
 public:
  std::shared_ptr<ChildProcess> make(const ChildProcessParameters&) override { return process; }

  const std::shared_ptr<ReadyProcess> process = std::make_shared<ReadyProcess>();
};

class NoDecoder : public ImageDecoder {
 public:
  std::optional<Image> decode(std::string_view bytes) override {
    benchmark::DoNotOptimize(bytes.data());
    return Image{.width = 1, .height = 1, .pixels = pixel_};
  }

 private:
  const std::shared_ptr<const std::vector<std::uint8_t>> pixel_ =
      std::make_shared<std::vector<std::uint8_t>>(4);
};

/// The adapter's lines, one after another.
using Lines = std::vector<std::string>;

constexpr const char* last =
    R"({"payload":{"bundleIdentifier":"b","title":"last","playing":true}})";

Lines differences() {
  Lines lines = {
      R"({"payload":{"bundleIdentifier":"com.spotify.client","title":"Song","playing":true}})"};
  for (int count = 0; count < 20000; ++count) {
    lines.push_back(R"({"diff":true,"payload":{"elapsedTime":)" + std::to_string(count) +
                    R"(.25,"playing":)" + (count % 2 == 0 ? "true" : "false") + "}}");
  }
  lines.emplace_back(last);
  return lines;
}

/// Full states with an artwork of 1 MB, the same in all or another in each.
Lines fullStates(bool isSameArtwork) {
  constexpr std::string_view letters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::mt19937 random(1);
  std::string artwork(1'398'104, 'A');
  std::ranges::generate(artwork, [&] { return letters[random() % letters.size()]; });
  Lines lines;
  for (std::size_t count = 0; count < 40; ++count) {
    if (!isSameArtwork) artwork[count] = artwork[count] == 'A' ? 'B' : 'A';
    lines.push_back(
        R"({"diff":false,"payload":{"bundleIdentifier":"com.spotify.client","title":")" +
        std::to_string(count) + R"(","playing":true,"artworkData":")" + artwork + "\"}}");
  }
  lines.emplace_back(last);
  return lines;
}

std::string joined(const Lines& lines) {
  std::string all;
  for (const std::string& line : lines) all.append(line).push_back('\n');
  return all;
}

void setRate(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void consumer(benchmark::State& state, const Lines& lines) {
  LinuxDispatch dispatch;
  ReadyProcesses processes;
  SimulatedBundle bundle;
  NoDecoder decoder;
  TestPlatform platform({.bundle = &bundle,
                         .childProcesses = &processes,
                         .dispatch = &dispatch,
                         .imageDecoder = &decoder});
  const std::string stream = joined(lines);
  {
    const auto adapter = AdapterNowPlaying::make();
    adapter->start();
    const auto isLast = [&] { return adapter->snapshot() && adapter->snapshot()->title == "last"; };
    for (auto _ : state) {
      processes.process->output->deliver(stream);
      if (!dispatch.serveMainQueueUntil(isLast, dispatch.uptime() + std::chrono::minutes(1))) {
        state.SkipWithError("the last line did not come");
        break;
      }
      state.PauseTiming();
      processes.process->output->deliver(lines.front() + "\n");
      dispatch.serveMainQueueUntil([&] { return !isLast(); },
                                   dispatch.uptime() + std::chrono::minutes(1));
      state.ResumeTiming();
    }
  }
  dispatch.shutdown();
  platform.states().clear();
  setRate(state, stream.size());
}

void library(benchmark::State& state, const Lines& lines) {
  std::vector<simdjson::padded_string> ready;
  std::size_t bytes = 0;
  for (const std::string& line : lines) {
    ready.emplace_back(line);
    bytes += line.size() + 1;
  }
  simdjson::ondemand::parser parser;
  for (auto _ : state) {
    for (const simdjson::padded_string& line : ready) {
      simdjson::ondemand::document document;
      simdjson::ondemand::object payload;
      if (parser.iterate(line).get(document) != simdjson::SUCCESS ||
          document["payload"].get_object().get(payload) != simdjson::SUCCESS) {
        state.SkipWithError("not JSON");
        return;
      }
      for (auto field : payload) {
        benchmark::DoNotOptimize(field.value().raw_json_token());
      }
    }
  }
  setRate(state, bytes);
}

void copy(benchmark::State& state, const Lines& lines) {
  const std::string stream = joined(lines);
  std::string target(stream.size(), '\0');
  for (auto _ : state) {
    std::memcpy(target.data(), stream.data(), stream.size());
    benchmark::ClobberMemory();
  }
  setRate(state, stream.size());
}

void add(const std::string& kind, const Lines& lines) {
  const auto one = [&](const char* what, void (*run)(benchmark::State&, const Lines&)) {
    benchmark::RegisterBenchmark((kind + ": " + what).c_str(),
                                 [run, lines](benchmark::State& state) { run(state, lines); })
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
  };
  one("stream consumer", consumer);
  one("JSON library alone", library);
  one("memory copy", copy);
}

}  // namespace
}  // namespace talmo::test

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  talmo::test::add("differences", talmo::test::differences());
  talmo::test::add("full states, one artwork", talmo::test::fullStates(true));
  talmo::test::add("full states, new artworks", talmo::test::fullStates(false));
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
