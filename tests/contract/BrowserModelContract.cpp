#include "tests/contract/BrowserModelContract.h"

#include <algorithm>
#include <set>
#include <utility>
#include <variant>

namespace talmo::test {
namespace {

using Text = std::optional<std::string>;

/// The answer; a failure of the test where there is none.
Text textOf(const BrowserResult<Text>& result) {
  if (const auto* failure = std::get_if<BrowserFailure>(&result)) {
    ADD_FAILURE() << "no answer: " << failure->message;
    return std::nullopt;
  }
  return std::get<Text>(result);
}

bool isGone(const BrowserResult<Text>& result) {
  const auto* const failure = std::get_if<BrowserFailure>(&result);
  return failure != nullptr && failure->kind == BrowserFailure::Kind::gone;
}

bool isGone(const std::optional<BrowserFailure>& failure) {
  return failure && failure->kind == BrowserFailure::Kind::gone;
}

}  // namespace

std::vector<std::string> BrowserModelContract::open(const std::vector<std::string>& titles) {
  world().openWindow(titles);
  std::vector<std::string> tabs;
  for (const std::string& title : titles) {
    Text tab;
    EXPECT_TRUE(world().eventually([&] {
      tab = tabWithTitle(title);
      return tab.has_value();
    })) << title;
    tabs.push_back(tab.value_or(""));
  }
  return tabs;
}

void BrowserModelContract::close(const std::string& tab) {
  world().closeTab(tab);
  EXPECT_TRUE(world().eventually([&] { return !windowOf(tab); }));
}

std::vector<BrowserWindow> BrowserModelContract::windows() {
  auto result = browser().windows();
  if (auto* found = std::get_if<std::vector<BrowserWindow>>(&result)) return std::move(*found);
  return {};
}

std::optional<BrowserWindow> BrowserModelContract::windowOf(const std::string& tab) {
  for (BrowserWindow& window : windows()) {
    if (std::ranges::find(window.tabs, tab) != window.tabs.end()) return std::move(window);
  }
  return std::nullopt;
}

Text BrowserModelContract::tabWithTitle(const std::string& title) {
  for (const BrowserWindow& window : windows()) {
    for (const std::string& tab : window.tabs) {
      const BrowserResult<Text> found = browser().title(tab);
      if (const auto* text = std::get_if<Text>(&found); text != nullptr && *text == title)
        return tab;
    }
  }
  return std::nullopt;
}

TEST_P(BrowserModelContract, TabsAreInTheirWindows) {
  const std::vector<std::string> first = open({"One", "Two"});
  const std::vector<std::string> second = open({"Three"});
  const std::optional<BrowserWindow> window = windowOf(first[0]);
  const std::optional<BrowserWindow> other = windowOf(second[0]);
  ASSERT_TRUE(window && other);
  EXPECT_EQ(windowOf(first[1]), window);
  EXPECT_NE(other->id, window->id);

  std::set<std::string> windowIDs;
  std::set<std::string> tabIDs;
  for (const BrowserWindow& each : windows()) {
    EXPECT_TRUE(windowIDs.insert(each.id).second) << "two windows " << each.id;
    for (const std::string& tab : each.tabs) {
      EXPECT_TRUE(tabIDs.insert(tab).second) << "two tabs " << tab;
    }
  }
}

TEST_P(BrowserModelContract, WindowsAndTabsKeepTheirNames) {
  const std::string tab = open({"One", "Two"})[1];
  const std::optional<BrowserWindow> before = windowOf(tab);
  open({"Three"});
  EXPECT_EQ(windowOf(tab), before);
}

TEST_P(BrowserModelContract, ATabHasItsAddressAndItsTitle) {
  const std::vector<std::string> tabs = open({"One", "\xC3\x89t\xC3\xA9 \"2\""});
  EXPECT_EQ(textOf(browser().url(tabs[0])), world().address("One"));
  EXPECT_EQ(textOf(browser().title(tabs[0])), "One");
  EXPECT_EQ(textOf(browser().url(tabs[1])), world().address("\xC3\x89t\xC3\xA9 \"2\""));
  EXPECT_EQ(textOf(browser().title(tabs[1])), "\xC3\x89t\xC3\xA9 \"2\"");
}

TEST_P(BrowserModelContract, JavaScriptRunsInItsTab) {
  const std::vector<std::string> tabs = open({"One", "Two"});
  EXPECT_EQ(textOf(browser().runJavaScript(tabs[0], "document.title")), "One");
  EXPECT_EQ(textOf(browser().runJavaScript(tabs[1], "document.title")), "Two");
}

TEST_P(BrowserModelContract, ASelectedTabIsShown) {
  const std::vector<std::string> tabs = open({"One", "Two", "Three"});
  for (const std::size_t index : {1U, 0U, 2U}) {
    EXPECT_EQ(browser().selectTab(tabs[index]), std::nullopt);
    EXPECT_TRUE(world().eventually([&] { return world().isShown(tabs[index]); })) << index;
    EXPECT_TRUE(world().eventually([&] { return !world().isShown(tabs[(index + 1) % 3]); }));
  }
}

TEST_P(BrowserModelContract, AWindowThatWasBroughtToFrontIsTheFirst) {
  const std::string first = open({"One"})[0];
  const std::string second = open({"Two"})[0];
  for (const std::string& tab : {first, second, first}) {
    const std::optional<BrowserWindow> window = windowOf(tab);
    ASSERT_TRUE(window);
    EXPECT_EQ(browser().bringToFront(window->id), std::nullopt);
    EXPECT_TRUE(world().eventually([&] { return windows().front().id == window->id; })) << tab;
  }
}

TEST_P(BrowserModelContract, ActivatingKeepsTheFrontWindow) {
  const std::string first = open({"One"})[0];
  open({"Two"});
  const std::optional<BrowserWindow> window = windowOf(first);
  ASSERT_TRUE(window);
  EXPECT_EQ(browser().bringToFront(window->id), std::nullopt);
  EXPECT_EQ(browser().activate(), std::nullopt);
  EXPECT_TRUE(world().eventually([&] { return windows().front().id == window->id; }));
}

TEST_P(BrowserModelContract, AClosedTabIsGone) {
  const std::vector<std::string> tabs = open({"One", "Two"});
  close(tabs[0]);
  EXPECT_TRUE(isGone(browser().url(tabs[0])));
  EXPECT_TRUE(isGone(browser().title(tabs[0])));
  EXPECT_TRUE(isGone(browser().runJavaScript(tabs[0], "document.title")));
  EXPECT_TRUE(isGone(browser().selectTab(tabs[0])));
  EXPECT_EQ(textOf(browser().title(tabs[1])), "Two");
}

TEST_P(BrowserModelContract, AWindowWhoseTabsAreClosedIsGone) {
  open({"One"});
  const std::string tab = open({"Two"})[0];
  const std::optional<BrowserWindow> window = windowOf(tab);
  ASSERT_TRUE(window);
  close(tab);
  EXPECT_TRUE(isGone(browser().bringToFront(window->id)));
  for (const BrowserWindow& other : windows()) EXPECT_NE(other.id, window->id);
}

TEST_P(BrowserModelContract, WhatNeverWasIsGone) {
  open({"One"});
  for (const std::string name : {"", "no such name", "-1"}) {
    EXPECT_TRUE(isGone(browser().url(name))) << name;
    EXPECT_TRUE(isGone(browser().title(name))) << name;
    EXPECT_TRUE(isGone(browser().runJavaScript(name, "1"))) << name;
    EXPECT_TRUE(isGone(browser().selectTab(name))) << name;
    EXPECT_TRUE(isGone(browser().bringToFront(name))) << name;
  }
}

}  // namespace talmo::test
