#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/SimulatedNetwork.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/contract/NetworkContract.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

constexpr const char* server = "https://server.test";

class SimulatedNetworkWorld : public NetworkWorld {
 public:
  explicit SimulatedNetworkWorld(std::uint64_t seed) : world_(seed) {
    network().setReplies([this](const std::string& url) { return reply(url); });
  }

  Dispatch& dispatch() override { return world_.time(); }
  SimulatedNetwork& network() override { return world_.machine().network(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return world_.time().runUntil(condition, limit);
  }

  void publish(const std::string& target, const Page& page) override { pages_[target] = page; }
  std::string url(const std::string& target) override { return server + target; }
  std::string deadUrl() override { return "https://nobody.test/"; }
  std::vector<std::string> requested() override {
    std::vector<std::string> targets;
    for (const std::string& url : network().requests()) targets.push_back(targetOf(url));
    return targets;
  }
  void shortenTimeout() override {}

 private:
  static std::string targetOf(const std::string& url) {
    return url.substr(url.find('/', std::string("https://").size()));
  }

  SimulatedNetwork::Reply reply(const std::string& url) {
    if (url == deadUrl()) return {.result = {.error = "no such host"}};
    const auto found = pages_.find(targetOf(url));
    if (found == pages_.end()) return {.result = {.status = 404}};
    const Page& page = found->second;
    SimulatedNetwork::Reply reply{.result = {.status = page.status, .body = page.body}};
    if (page.isSilent) reply.delay = Duration::max();
    return reply;
  }

  // Outlives what asks for them.
  std::map<std::string, Page> pages_;
  SimulatedWorld world_;
};

template <std::uint64_t seed>
std::unique_ptr<NetworkWorld> make() {
  return std::make_unique<SimulatedNetworkWorld>(seed);
}

INSTANTIATE_TEST_SUITE_P(Simulated, NetworkContract,
                         testing::Values(&make<0>, &make<1>, &make<2>, &make<3>));

class SimulatedNetworkTest : public testing::Test {
 protected:
  SimulatedNetwork& network() { return world.machine().network(); }
  NetworkRecord& start(const std::string& url) {
    network().get(url, [this](NetworkResult result) { record.add(std::move(result)); });
    return record;
  }

  // Outlives the world, whose work writes to it.
  NetworkRecord record;
  SimulatedWorld world;
};

TEST_F(SimulatedNetworkTest, FailsEveryRequestAtFirst) {
  start("https://server.test/");
  world.time().runUntilIdle();
  ASSERT_EQ(record.count(), 1U);
  EXPECT_TRUE(record.results().front().error);
}

TEST_F(SimulatedNetworkTest, AnswersAfterTheDelayInVirtualTime) {
  network().setReplies([](const std::string& url) {
    return SimulatedNetwork::Reply{.result = {.status = 200, .body = url}, .delay = 3s};
  });
  start("https://server.test/a");
  world.time().run(2999ms);
  EXPECT_EQ(record.count(), 0U);
  world.time().run(1ms);
  EXPECT_THAT(record.results(),
              ElementsAre(NetworkResult{.status = 200, .body = "https://server.test/a"}));
}

TEST_F(SimulatedNetworkTest, FailsAtTheTimeOut) {
  network().setReplies([](const std::string&) {
    return SimulatedNetwork::Reply{.result = {.status = 200}, .delay = 1h};
  });
  start("https://server.test/");
  world.time().run(Network::timeout - 1ms);
  EXPECT_EQ(record.count(), 0U);
  world.time().run(1ms);
  ASSERT_EQ(record.count(), 1U);
  EXPECT_TRUE(record.results().front().error);
}

TEST_F(SimulatedNetworkTest, KnowsWhatWentOutInOrder) {
  start("https://server.test/b");
  start("http://server.test/refused");
  start("https://server.test/a");
  EXPECT_THAT(network().requests(), ElementsAre("https://server.test/b", "https://server.test/a"));
}

}  // namespace
}  // namespace talmo::test
