#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/osascript/MemoryBrowser.h"
#include "tests/contract/BrowserModelContract.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;

class MemoryBrowserWorld : public BrowserModelWorld {
 public:
  MemoryBrowser& browser() override { return browser_; }

  void openWindow(const std::vector<std::string>& titles) override {
    const std::string window = browser_.openWindow();
    for (const std::string& title : titles) {
      const std::string tab = browser_.openTab(window, address(title), title);
      browser_.setJavaScriptResult(tab, title);
    }
  }
  std::string address(const std::string& title) const override {
    return "https://test.example/" + title;
  }
  void closeTab(const std::string& tab) override { browser_.closeTab(tab); }
  bool isShown(const std::string& tab) override {
    const auto windows = std::get<std::vector<BrowserWindow>>(browser_.windows());
    for (const BrowserWindow& window : windows) {
      if (browser_.shownTab(window.id) == tab) return true;
    }
    return false;
  }
  bool eventually(const std::function<bool()>& condition) override { return condition(); }

 private:
  MemoryBrowser browser_;
};

INSTANTIATE_TEST_SUITE_P(InMemory, BrowserModelContract,
                         testing::Values([] { return std::make_unique<MemoryBrowserWorld>(); }),
                         [](const auto&) { return "Browser"; });

// What it can do beyond what every browser does.

TEST(MemoryBrowser, WritesDownWhatWasDone) {
  MemoryBrowser browser;
  const std::string window = browser.openWindow();
  const std::string tab = browser.openTab(window, "u", "t");
  EXPECT_EQ(browser.activate(), std::nullopt);
  EXPECT_EQ(browser.selectTab(tab), std::nullopt);
  EXPECT_EQ(browser.bringToFront(window), std::nullopt);
  browser.runJavaScript(tab, "a()");
  browser.windows();
  EXPECT_THAT(browser.effects(),
              ElementsAre("activate", "select tab 2", "front window 1", "run in tab 2: a()"));
  EXPECT_EQ(browser.requestCount(), 5U);
}

TEST(MemoryBrowser, DoesNothingWhereItFails) {
  MemoryBrowser browser;
  const std::string tab = browser.openTab(browser.openWindow(), "u", "t");
  const BrowserFailure refused{.kind = BrowserFailure::Kind::refused, .message = "no"};
  browser.failJavaScript(refused);
  EXPECT_EQ(std::get<BrowserFailure>(browser.runJavaScript(tab, "a()")), refused);
  browser.fail({.kind = BrowserFailure::Kind::timedOut});
  EXPECT_EQ(browser.activate()->kind, BrowserFailure::Kind::timedOut);
  EXPECT_EQ(std::get<BrowserFailure>(browser.windows()).kind, BrowserFailure::Kind::timedOut);
  EXPECT_THAT(browser.effects(), ElementsAre());
  EXPECT_FALSE(browser.isActive());
}

TEST(MemoryBrowser, CanBeChangedWhileItIsAsked) {
  MemoryBrowser browser;
  const std::string tab = browser.openTab(browser.openWindow(), "u", "t");
  browser.onRequest([&](const std::string& request) {
    if (request == "title " + tab) browser.closeTab(tab);
  });
  EXPECT_EQ(std::get<std::optional<std::string>>(browser.url(tab)), "u");
  EXPECT_EQ(std::get<BrowserFailure>(browser.title(tab)).kind, BrowserFailure::Kind::gone);
}

}  // namespace
}  // namespace talmo::test
