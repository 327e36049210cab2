#include <algorithm>
#include <chrono>
#include <fstream>
#include <stdlib.h>

#include <gtest/gtest.h>

#include "platform/linux/applications/LinuxWindows.h"
#include "platform/linux/browsers/RemoteBrowser.h"
#include "tests/support/ChromiumProcess.h"
#include "tests/support/FocusWindow.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Instances = std::vector<BrowserInstance>;
using Strings = std::vector<std::string>;
using Text = std::optional<std::string>;
using Windows = std::vector<BrowserWindow>;

/// The address of a page with that title.
std::string page(const std::string& title) {
  return "data:text/html,<title>" + title + "</title>";
}

/// A private desktop that the backend sees. Each test starts one browser, which takes seconds.
class RealChromiumTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!ChromiumProcess::isInstalled()) GTEST_SKIP() << "there is no Chromium";
    desktop_ = std::make_unique<PrivateDesktop>();
    ::setenv("DISPLAY", desktop_->displayName().c_str(), 1);
  }

  void start(const ChromiumProcess::Start& start) {
    chromium_ = std::make_unique<ChromiumProcess>(*desktop_, start);
  }

  /// The browser that was started, whatever others there are on this machine.
  Instances instances() const {
    Instances found = browserInstances("com.google.Chrome");
    std::erase_if(found, [&](const auto& one) { return one.process != chromium_->pid(); });
    return found;
  }

  std::unique_ptr<PrivateDesktop> desktop_;
  std::unique_ptr<ChromiumProcess> chromium_;
};

/// A browser as a script sees it, with its tabs by their titles.
class Script {
 public:
  explicit Script(const Instances& instances) : browser_(instances, 10s) {}

  RemoteBrowser& browser() { return browser_; }

  Windows windows() {
    const auto result = browser_.windows();
    return result.index() == 0 ? std::get<0>(result) : Windows{};
  }

  /// The titles of the tabs by window, sorted within each, which is the most that can be known.
  std::vector<Strings> titles() {
    std::vector<Strings> all;
    for (const BrowserWindow& window : windows()) {
      Strings titles;
      for (const std::string& tab : window.tabs) titles.push_back(title(tab));
      std::ranges::sort(titles);
      all.push_back(titles);
    }
    return all;
  }

  std::string title(const std::string& tab) {
    const auto result = browser_.title(tab);
    return result.index() == 0 ? std::get<0>(result).value_or("") : "gone";
  }

  /// The tab with that title; empty when there is none.
  std::string tab(const std::string& titled) {
    for (const BrowserWindow& window : windows()) {
      for (const std::string& one : window.tabs) {
        if (title(one) == titled) return one;
      }
    }
    return {};
  }

  std::string windowOf(const std::string& tab) {
    for (const BrowserWindow& window : windows()) {
      if (std::ranges::find(window.tabs, tab) != window.tabs.end()) return window.id;
    }
    return {};
  }

  Text run(const std::string& tab, const std::string& source) {
    const auto result = browser_.runJavaScript(tab, source);
    return result.index() == 0 ? std::get<0>(result) : "failure";
  }

 private:
  RemoteBrowser browser_;
};

bool isInFront(const std::string& title) {
  const std::optional<LinuxWindow> active = LinuxWindows::active();
  if (!active) return false;
  const Strings names = LinuxWindows::namesFrontToBack(active->process);
  return !names.empty() && names.front().starts_with(title);
}

TEST_F(RealChromiumTest, ItsTabsAreReadAndDrivenUntilItEnds) {
  start({.arguments = {page("one"), page("two"), page("three")}});
  chromium_->openWindow(page("four"));
  const Instances instances = this->instances();
  ASSERT_EQ(instances.size(), 1U);
  ASSERT_EQ(instances[0].socket, (DebuggingAddress{
                                     .port = static_cast<std::uint16_t>(chromium_->port()),
                                     .path = chromium_->socketPath(),
                                 }));
  Script script(instances);

  // The window that was opened last is in front.
  const std::vector<Strings> expected{{"four"}, {"one", "three", "two"}};
  EXPECT_TRUE(waitUntil([&] { return script.titles() == expected; }, 20s, 20ms));
  const std::string one = script.tab("one");
  const std::string two = script.tab("two");
  EXPECT_EQ(script.browser().url(two), BrowserResult<Text>(page("two")));

  EXPECT_EQ(script.run(two, "'\\u00e9\\ud83d\\ude00 \\ud800'"),
            "\xc3\xa9\xf0\x9f\x98\x80 \xef\xbf\xbd");
  EXPECT_EQ(script.run(two, "1 + 1"), "2");
  EXPECT_EQ(script.run(two, "undefined"), std::nullopt);
  EXPECT_EQ(script.run(two, "throw new Error('no')"), std::nullopt);
  EXPECT_EQ(script.run(two, "navigator.userActivation.isActive"), "true");

  EXPECT_EQ(script.run(two, "document.title = 'second'"), "second");
  EXPECT_TRUE(waitUntil([&] { return script.title(two) == "second"; }));

  // A window of another program comes in front of the browser's.
  const FocusWindow other(desktop_->displayName());
  EXPECT_TRUE(waitUntil([] { return isInFront("focus window"); }));
  EXPECT_EQ(script.browser().selectTab(two), std::nullopt);
  EXPECT_EQ(script.browser().bringToFront(script.windowOf(two)), std::nullopt);
  EXPECT_EQ(script.browser().activate(), std::nullopt);
  EXPECT_TRUE(waitUntil([] { return isInFront("second"); }));
  EXPECT_EQ(script.run(two, "document.visibilityState"), "visible");
  EXPECT_EQ(script.run(one, "document.visibilityState"), "hidden");

  // Without a tab that was selected before, the one that is shown stays.
  Script next(instances);
  EXPECT_EQ(next.browser().bringToFront(next.windowOf(next.tab("four"))), std::nullopt);
  EXPECT_TRUE(waitUntil([] { return isInFront("four"); }));
  EXPECT_EQ(next.browser().bringToFront(next.windowOf(two)), std::nullopt);
  EXPECT_TRUE(waitUntil([] { return isInFront("second"); }));

  chromium_->quit();
  EXPECT_TRUE(readDebuggingAddress(chromium_->profile()));
  EXPECT_EQ(this->instances(), Instances{});
  EXPECT_EQ(std::get<BrowserFailure>(next.browser().windows()).kind, BrowserFailure::Kind::gone);
  EXPECT_EQ(std::get<BrowserFailure>(next.browser().windows()).kind, BrowserFailure::Kind::refused);
}

TEST_F(RealChromiumTest, TheSocketThatItsSettingsOpenIsLeftAlone) {
  // As its page chrome://inspect/#remote-debugging sets it.
  const std::filesystem::path profile = desktop_->folder() / "profile";
  std::filesystem::create_directories(profile);
  std::ofstream(profile / "Local State")
      << R"({"devtools": {"remote_debugging": {"user-enabled": true}}})";
  start({.profile = profile, .hasSocket = false});
  EXPECT_TRUE(waitUntil([&] { return readDebuggingAddress(profile).has_value(); }, 30s, 20ms));
  EXPECT_EQ(instances(), (Instances{{.process = chromium_->pid(), .socket = std::nullopt}}));
}

}  // namespace
}  // namespace talmo::test
