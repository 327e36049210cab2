// What happens to requests when the network goes, and to those that wait for a name.

#include <atomic>
#include <chrono>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/linux/network/LinuxNetwork.h"
#include "tests/backend/network/HangingNames.h"
#include "tests/backend/network/Listener.h"
#include "tests/backend/network/NetworkDesk.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

class LinuxNetworkEndTest : public testing::Test {
 protected:
  LinuxNetworkEndTest() {
    desk.publish("/silence", {.isSilent = true});
    desk.publish("/endless", {.body = "x", .isEndless = true});
    desk.publish("/page", {.body = "the page"});
  }

  /// Starts a request whose end is counted.
  void start(const std::string& url) {
    network->get(url, [count = ends](const NetworkResult&) { ++*count; });
  }

  NetworkDesk desk;
  const std::shared_ptr<std::atomic<int>> ends = std::make_shared<std::atomic<int>>(0);
  std::unique_ptr<LinuxNetwork> network = std::make_unique<LinuxNetwork>(desk.settings());
};

TEST_F(LinuxNetworkEndTest, NeedsNoRequest) {
  network.reset();
}

TEST_F(LinuxNetworkEndTest, EndsWhatIsUnderWayWithoutACompletion) {
  const Listener listener;
  start(desk.server().url("/silence"));
  start(desk.server().url("/endless"));
  start("https://127.0.0.1:" + std::to_string(listener.port()) + "/");
  ASSERT_TRUE(waitUntil([&] { return desk.requested().size() == 2 && listener.isAsked(); }, 30s));
  network.reset();
  EXPECT_EQ(ends->load(), 0);
  EXPECT_EQ(ends.use_count(), 1) << "the completions have gone";
}

TEST_F(LinuxNetworkEndTest, DropsWhatHasHardlyBegun) {
  for (int index = 0; index < 20; ++index) start(desk.server().url("/page"));
  network.reset();
  EXPECT_LE(ends->load(), 20);
  EXPECT_EQ(ends.use_count(), 1) << "the completions have gone";
}

TEST_F(LinuxNetworkEndTest, WaitsForACompletionThatRuns) {
  const auto isRunning = std::make_shared<std::atomic<bool>>(false);
  const auto hasEnded = std::make_shared<std::atomic<bool>>(false);
  const auto mayEnd = std::make_shared<std::atomic<bool>>(false);
  network->get(desk.server().url("/page"), [=](const NetworkResult&) {
    *isRunning = true;
    waitUntil([&] { return mayEnd->load(); });
    *hasEnded = true;
  });
  ASSERT_TRUE(waitUntil([&] { return isRunning->load(); }, 30s));
  *mayEnd = true;
  network.reset();
  EXPECT_TRUE(hasEnded->load());
}

TEST_F(LinuxNetworkEndTest, DoesNotWaitForANameThatIsLookedUp) {
  const HangingNames names;
  start("https://server.hanging.test/");
  ASSERT_TRUE(waitUntil([] { return HangingNames::count() == 1; }, 30s));
  network.reset();
  EXPECT_EQ(HangingNames::count(), 1);
  EXPECT_EQ(ends->load(), 0);
}

TEST_F(LinuxNetworkEndTest, ANameThatIsNotFoundInTimeHoldsUpNobodyElse) {
  NetworkSettings settings = desk.settings();
  settings.connectTimeout = 1s;
  network = std::make_unique<LinuxNetwork>(settings);
  const HangingNames names;
  const NetworkResult lost = NetworkDesk::fetch(*network, "https://server.hanging.test/");
  EXPECT_TRUE(lost.error);
  EXPECT_EQ(HangingNames::count(), 1);
  EXPECT_EQ(NetworkDesk::fetch(*network, desk.server().url("/page")).body, "the page");
}

}  // namespace
}  // namespace talmo::test
