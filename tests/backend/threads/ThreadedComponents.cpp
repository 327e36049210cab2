// Runs the component tests on real threads: the machine is the simulated one, the queues, threads
// and clocks are not.

#include <memory>
#include <utility>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "tests/component/AccessibilityPermissionTest.h"
#include "tests/component/AdapterNowPlayingTest.h"
#include "tests/component/AppCoordinatorTest.h"
#include "tests/component/AudioActivityTest.h"
#include "tests/component/AutomationPermissionTest.h"
#include "tests/component/AutoRoutingTest.h"
#include "tests/component/FirstRunTest.h"
#include "tests/component/MediaKeyTapTest.h"
#include "tests/component/NowPlayingTest.h"
#include "tests/component/OnboardingModelTest.h"
#include "tests/component/PanelTest.h"
#include "tests/component/PanelWiringTest.h"
#include "tests/component/PlayerDetectionTest.h"
#include "tests/component/StatusItemControllerTest.h"
#include "tests/component/SystemNowPlayingTest.h"
#include "tests/component/WebPlayerControllerTest.h"
#include "tests/component/WebTabDetectionTest.h"
#include "tests/component/WebTabScannerTest.h"
#include "tests/component/World.h"

namespace talmo::test {
namespace {

class ThreadedWorld : public World {
 public:
  ThreadedWorld() : ThreadedWorld(std::make_unique<LinuxDispatch>()) {}

  SimulatedPlatform& machine() override { return machine_; }
  bool runUntil(const std::function<bool()>& condition) override {
    // The condition may come true on another thread, without an item of the main queue.
    const Uptime deadline = dispatch_.uptime() + std::chrono::seconds(10);
    while (!condition()) {
      const Uptime now = dispatch_.uptime();
      if (now >= deadline) return false;
      dispatch_.serveMainQueueUntil(condition, now + std::chrono::milliseconds(2));
    }
    return true;
  }

 private:
  explicit ThreadedWorld(std::unique_ptr<LinuxDispatch> dispatch)
      : dispatch_(*dispatch), machine_(std::move(dispatch)) {}

  LinuxDispatch& dispatch_;
  SimulatedPlatform machine_;
};

const auto world =
    testing::Values(+[]() -> std::unique_ptr<World> { return std::make_unique<ThreadedWorld>(); });

INSTANTIATE_TEST_SUITE_P(Threads, AccessibilityPermissionTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, AdapterNowPlayingTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, AppCoordinatorTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, AudioActivityTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, AutoRoutingTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, AutomationPermissionTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, FirstRunTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, MediaKeyTapTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, NowPlayingTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, OnboardingModelTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, PlayerDetectionTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, PanelControllerTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, PanelKeysTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, PanelOffersTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, PanelWiringTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, StatusItemControllerTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, SystemNowPlayingTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, WebPlayerControllerTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, WebTabDetectionTest, world);
INSTANTIATE_TEST_SUITE_P(Threads, WebTabScannerTest, world);

}  // namespace
}  // namespace talmo::test
