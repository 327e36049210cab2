#include "tests/support/ScriptedChild.h"

#include <chrono>
#include <fstream>
#include <utility>
#include <variant>
#include <vector>

namespace talmo::test {
namespace {

using Script = SimulatedChildScript;
using Words = std::vector<std::string>;

/// A step as the program's arguments.
class StepWords {
 public:
  explicit StepWords(const std::filesystem::path& folder) : folder_(folder) {}

  Words operator()(const Script::Write& step) const {
    std::filesystem::path file;
    for (int number = 0; file.empty() || std::filesystem::exists(file); ++number) {
      file = folder_ / std::to_string(number);
    }
    std::ofstream(file, std::ios::binary) << step.bytes;
    return {"write", descriptor(step.output), file.string()};
  }
  Words operator()(const Script::Wait& step) const {
    const auto time = std::chrono::ceil<std::chrono::milliseconds>(step.duration);
    return {"wait", std::to_string(time.count())};
  }
  Words operator()(const Script::Close& step) const { return {"close", descriptor(step.output)}; }
  Words operator()(const Script::End& step) const {
    return {step.termination.reason == ChildTermination::Reason::exit ? "exit" : "signal",
            std::to_string(step.termination.status)};
  }
  Words operator()(const Script::LiveOn&) const { return {"live"}; }

 private:
  static std::string descriptor(Script::Output output) {
    return output == Script::Output::standardOutput ? "1" : "2";
  }

  const std::filesystem::path& folder_;
};

}  // namespace

ChildProcessParameters scriptedChild(const Script& script, const std::string& executable,
                                     const std::filesystem::path& folder) {
  ChildProcessParameters parameters{.executable = executable};
  if (!script.obeysTerminate()) parameters.arguments.emplace_back("ignore");
  for (const Script::Step& step : script.steps()) {
    for (std::string& word : std::visit(StepWords(folder), step)) {
      parameters.arguments.push_back(std::move(word));
    }
  }
  return parameters;
}

}  // namespace talmo::test
