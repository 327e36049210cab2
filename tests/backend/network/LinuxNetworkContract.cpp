#include <memory>
#include <string>
#include <vector>

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/network/LinuxNetwork.h"
#include "tests/backend/network/Listener.h"
#include "tests/backend/network/NetworkDesk.h"
#include "tests/contract/NetworkContract.h"

namespace talmo::test {
namespace {

class LinuxNetworkWorld : public NetworkWorld {
 public:
  Dispatch& dispatch() override { return dispatch_; }
  Network& network() override { return *network_; }

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

  void publish(const std::string& target, const Page& page) override {
    desk_.publish(target, {.status = page.status, .body = page.body, .isSilent = page.isSilent});
  }
  std::string url(const std::string& target) override { return desk_.server().url(target); }
  std::string deadUrl() override {
    // Free again when the listener has gone.
    return "https://127.0.0.1:" + std::to_string(Listener().port()) + "/";
  }
  std::vector<std::string> requested() override { return desk_.requested(); }

  void shortenTimeout() override {
    NetworkSettings settings = desk_.settings();
    settings.timeout = std::chrono::milliseconds(300);
    network_ = std::make_unique<LinuxNetwork>(settings);
  }

 private:
  NetworkDesk desk_;
  LinuxDispatch dispatch_;
  std::unique_ptr<LinuxNetwork> network_ = std::make_unique<LinuxNetwork>(desk_.settings());
};

INSTANTIATE_TEST_SUITE_P(Linux, NetworkContract,
                         testing::Values([] { return std::make_unique<LinuxNetworkWorld>(); }),
                         [](const auto&) { return "RealTime"; });

}  // namespace
}  // namespace talmo::test
