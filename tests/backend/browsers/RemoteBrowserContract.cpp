// One browser for all tests of this program, as it takes seconds to start; each leaves its windows
// behind.

#include <cctype>
#include <chrono>
#include <stdlib.h>
#include <string_view>

#include "platform/linux/browsers/BrowserInstance.h"
#include "platform/linux/browsers/RemoteBrowser.h"
#include "tests/contract/BrowserModelContract.h"
#include "tests/support/ChromiumProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

/// Only what may stand in any address stays as it is.
std::string escaped(const std::string& text) {
  static constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (std::isalnum(byte) != 0) {
      result += character;
    } else {
      result += '%';
      result += digits[byte / 16];
      result += digits[byte % 16];
    }
  }
  return result;
}

/// The browser on its desktop, from before the first test to behind the last.
class RunningChromium : public testing::Environment {
 public:
  void SetUp() override {
    if (!ChromiumProcess::isInstalled()) GTEST_SKIP() << "there is no Chromium";
    desktop_ = std::make_unique<PrivateDesktop>();
    ::setenv("DISPLAY", desktop_->displayName().c_str(), 1);
    process_ = std::make_unique<ChromiumProcess>(*desktop_);
  }
  void TearDown() override {
    process_.reset();
    desktop_.reset();
  }

  const ChromiumProcess& process() const { return *process_; }

 private:
  std::unique_ptr<PrivateDesktop> desktop_;
  std::unique_ptr<ChromiumProcess> process_;
};

// gtest deletes it.
RunningChromium* const chromium = new RunningChromium;
[[maybe_unused]] const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(chromium);

class RemoteBrowserWorld : public BrowserModelWorld {
 public:
  RemoteBrowserWorld() {
    std::vector<BrowserInstance> instances = browserInstances("com.google.Chrome");
    std::erase_if(instances, [](const BrowserInstance& one) {
      return one.process != chromium->process().pid();
    });
    browser_ = std::make_unique<RemoteBrowser>(instances, 10s);
  }
  ~RemoteBrowserWorld() override {
    for (const std::string& title : opened_) {
      if (const std::string tab = tabAt(address(title)); !tab.empty()) closeTab(tab);
    }
  }

  BrowserModel& browser() override { return *browser_; }

  void openWindow(const std::vector<std::string>& titles) override {
    for (const std::string& title : titles) {
      opened_.push_back(title);
      const bool isFirst = title == titles.front();
      if (isFirst) {
        chromium->process().openWindow(address(title));
      } else {
        chromium->process().open(address(title));
      }
      // The next one goes into the window that is in front, which this one is then.
      waitUntil([&] { return !tabAt(address(title)).empty(); }, 20s, 20ms);
    }
  }
  std::string address(const std::string& title) const override {
    return "data:text/html;charset=utf-8,<title>" + escaped(title) + "</title>";
  }
  void closeTab(const std::string& tab) override { browser_->runJavaScript(tab, "window.close()"); }
  bool isShown(const std::string& tab) override {
    const auto state = browser_->runJavaScript(tab, "document.visibilityState");
    const auto* text = std::get_if<std::optional<std::string>>(&state);
    return text != nullptr && *text == "visible";
  }
  bool eventually(const std::function<bool()>& condition) override {
    return waitUntil(condition, 20s, 20ms);
  }

 private:
  std::string tabAt(const std::string& address) {
    const auto windows = browser_->windows();
    const auto* found = std::get_if<std::vector<BrowserWindow>>(&windows);
    if (found == nullptr) return {};
    for (const BrowserWindow& window : *found) {
      for (const std::string& tab : window.tabs) {
        const auto url = browser_->url(tab);
        const auto* text = std::get_if<std::optional<std::string>>(&url);
        if (text != nullptr && *text == address) return tab;
      }
    }
    return {};
  }

  std::unique_ptr<RemoteBrowser> browser_;
  std::vector<std::string> opened_;
};

INSTANTIATE_TEST_SUITE_P(Linux, BrowserModelContract,
                         testing::Values([] { return std::make_unique<RemoteBrowserWorld>(); }),
                         [](const auto&) { return "Chromium"; });

}  // namespace
}  // namespace talmo::test
