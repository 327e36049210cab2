#include <fstream>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/processes/LinuxChildProcesses.h"
#include "tests/contract/ChildProcessContract.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

using Script = SimulatedChildScript;

class LinuxChildProcessWorld : public ChildProcessWorld {
 public:
  Dispatch& dispatch() override { return dispatch_; }
  ChildProcesses& childProcesses() override { return childProcesses_; }

  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    // What a condition reads changes on other threads, without an item of the main queue.
    const Uptime deadline = dispatch_.uptime() + limit;
    while (!condition()) {
      const Uptime now = dispatch_.uptime();
      if (now >= deadline) return false;
      dispatch_.serveMainQueueUntil(condition, now + std::chrono::milliseconds(2));
    }
    return true;
  }

  ChildProcessParameters program(const Script& script) override {
    ChildProcessParameters parameters{.executable = TALMO_TEST_CHILD};
    if (!script.obeysTerminate()) parameters.arguments.emplace_back("ignore");
    for (const Script::Step& step : script.steps()) {
      for (std::string& argument :
           std::visit([this](const auto& what) { return this->words(what); }, step)) {
        parameters.arguments.push_back(std::move(argument));
      }
    }
    return parameters;
  }

  ChildProcessParameters missingProgram() override {
    return {.executable = (files_.path() / "missing").string()};
  }

 private:
  static std::string descriptor(Script::Output output) {
    return output == Script::Output::standardOutput ? "1" : "2";
  }

  std::vector<std::string> words(const Script::Write& step) {
    const std::string path = (files_.path() / std::to_string(fileCount_++)).string();
    std::ofstream(path, std::ios::binary) << step.bytes;
    return {"write", descriptor(step.output), path};
  }
  static std::vector<std::string> words(const Script::Wait& step) {
    const auto time = std::chrono::ceil<std::chrono::milliseconds>(step.duration);
    return {"wait", std::to_string(time.count())};
  }
  static std::vector<std::string> words(const Script::Close& step) {
    return {"close", descriptor(step.output)};
  }
  static std::vector<std::string> words(const Script::End& step) {
    return {step.termination.reason == ChildTermination::Reason::exit ? "exit" : "signal",
            std::to_string(step.termination.status)};
  }
  static std::vector<std::string> words(const Script::LiveOn&) { return {"live"}; }

  const TemporaryFolder files_;
  int fileCount_ = 0;
  LinuxChildProcesses childProcesses_;
  LinuxDispatch dispatch_;
};

INSTANTIATE_TEST_SUITE_P(Linux, ChildProcessContract,
                         testing::Values([] { return std::make_unique<LinuxChildProcessWorld>(); }),
                         [](const auto&) { return "RealTime"; });

}  // namespace
}  // namespace talmo::test
