#include <memory>

#include "platform/macos/processes/MacChildProcesses.h"
#include "tests/contract/ChildProcessContract.h"
#include "tests/macos/contract/MacDispatchWorld.h"
#include "tests/support/ScriptedChild.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

class MacChildProcessWorld : public MacDispatchWorld<ChildProcessWorld> {
 public:
  ChildProcesses& childProcesses() override { return childProcesses_; }

  ChildProcessParameters program(const SimulatedChildScript& script) override {
    return scriptedChild(script, TALMO_TEST_CHILD, files_.path());
  }

  ChildProcessParameters missingProgram() override {
    return {.executable = (files_.path() / "missing").string()};
  }

 private:
  const TemporaryFolder files_;
  MacChildProcesses childProcesses_;
};

INSTANTIATE_TEST_SUITE_P(Mac, ChildProcessContract, testing::Values([] {
                           return std::make_unique<MacChildProcessWorld>();
                         }), [](const auto&) { return "RealTime"; });

}  // namespace
}  // namespace talmo::test
