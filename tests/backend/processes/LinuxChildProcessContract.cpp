#include <memory>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/processes/LinuxChildProcesses.h"
#include "tests/contract/ChildProcessContract.h"
#include "tests/support/ScriptedChild.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

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

  ChildProcessParameters program(const SimulatedChildScript& script) override {
    return scriptedChild(script, TALMO_TEST_CHILD, files_.path());
  }

  ChildProcessParameters missingProgram() override {
    return {.executable = (files_.path() / "missing").string()};
  }

 private:
  const TemporaryFolder files_;
  LinuxChildProcesses childProcesses_;
  LinuxDispatch dispatch_;
};

INSTANTIATE_TEST_SUITE_P(Linux, ChildProcessContract,
                         testing::Values([] { return std::make_unique<LinuxChildProcessWorld>(); }),
                         [](const auto&) { return "RealTime"; });

}  // namespace
}  // namespace talmo::test
