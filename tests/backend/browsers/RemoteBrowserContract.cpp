#include <array>
#include <chrono>
#include <stdexcept>
#include <stdlib.h>
#include <utility>

#include "platform/linux/browsers/BrowserInstance.h"
#include "platform/linux/browsers/DebuggingConnection.h"
#include "platform/linux/browsers/RemoteBrowser.h"
#include "tests/contract/BrowserModelContract.h"
#include "tests/support/ChromiumProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

/// Every byte as a URL has those that mean something in it.
std::string escaped(const std::string& text) {
  constexpr std::array digits{'0', '1', '2', '3', '4', '5', '6', '7',
                              '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'};
  std::string result;
  for (const char letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    result += {'%', digits[byte / 16U], digits[byte % 16U]};
  }
  return result;
}

/// A real browser on a desktop of its own.
class RemoteBrowserWorld : public BrowserModelWorld {
 public:
  RemoteBrowserWorld() {
    ::setenv("DISPLAY", desktop_.displayName().c_str(), 1);
    std::vector<BrowserInstance> instances = browserInstances("com.google.Chrome");
    std::erase_if(instances, [&](const auto& one) { return one.process != chromium_.pid(); });
    browser_ = std::make_unique<RemoteBrowser>(instances, 10s);
    watcher_ = std::make_unique<RemoteBrowser>(instances, 10s);
    auto socket = DebuggingSocket::connect(instances.at(0).socket.value(), deadline());
    if (!socket) throw std::runtime_error("no connection to the browser");
    hand_ = std::make_unique<DebuggingConnection>(std::move(socket));
  }

  BrowserModel& browser() override { return *browser_; }

  void openWindow(const std::vector<std::string>& titles) override {
    std::vector<std::string> addresses;
    for (const std::string& title : titles) addresses.push_back(address(title));
    chromium_.openWindow(addresses);
  }

  std::string address(const std::string& title) const override {
    return "data:text/html;charset=utf-8,<title>" + escaped(title) + "</title>";
  }

  void closeTab(const std::string& tab) override {
    const auto result = hand_->call(
        {.method = "Target.closeTarget", .parameters = {{"targetId", tab}}}, deadline());
    if (result.index() != 0) throw std::runtime_error("the tab was not closed");
  }

  bool isShown(const std::string& tab) override {
    return watcher_->runJavaScript(tab, "document.visibilityState") ==
           BrowserResult<std::optional<std::string>>("visible");
  }

  bool eventually(const std::function<bool()>& condition) override {
    return waitUntil(condition, 20s, 20ms);
  }

 private:
  static Uptime deadline() { return std::chrono::steady_clock::now() + 10s; }

  const PrivateDesktop desktop_;
  const ChromiumProcess chromium_{desktop_};
  std::unique_ptr<RemoteBrowser> browser_;
  /// Looks at the pages without the first one's knowing.
  std::unique_ptr<RemoteBrowser> watcher_;
  std::unique_ptr<DebuggingConnection> hand_;
};

INSTANTIATE_TEST_SUITE_P(Chromium, BrowserModelContract,
                         testing::Values([]() -> std::unique_ptr<BrowserModelWorld> {
                           return std::make_unique<RemoteBrowserWorld>();
                         }));

}  // namespace
}  // namespace talmo::test
