#include <chrono>
#include <stdlib.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/browsers/RemoteBrowser.h"
#include "tests/backend/browsers/FakeBrowser.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using Clock = std::chrono::steady_clock;
using Json = nlohmann::json;
using Kind = BrowserFailure::Kind;
using Reply = FakeBrowser::Reply;
using Strings = std::vector<std::string>;
using Text = std::optional<std::string>;
using Windows = std::vector<BrowserWindow>;

struct Tab {
  std::string id;
  /// 0 for one that is in no window.
  int window = 0;
  std::string type = "page";
  std::string title = "Title";
  std::string url = "https://example.com/";
};

/// A browser with tabs, and the RemoteBrowser that speaks to it.
class RemoteBrowserTest : public testing::Test {
 protected:
  RemoteBrowserTest() { ::unsetenv("DISPLAY"); }

  RemoteBrowser& browser() { return browser_; }

  Windows windows() {
    const auto result = browser_.windows();
    EXPECT_EQ(result.index(), 0U);
    return result.index() == 0 ? std::get<0>(result) : Windows{};
  }

  /// The methods that the browser was asked for, with the tab or the session that they were for.
  Strings asked() const {
    Strings methods;
    for (const Json& request : fake_.received()) {
      std::string line = request.at("method");
      if (request.at("params").contains("targetId")) {
        line += " " + request.at("params").at("targetId").get<std::string>();
      }
      if (request.contains("sessionId"))
        line += " in " + request.at("sessionId").get<std::string>();
      methods.push_back(line);
    }
    return methods;
  }

  /// The results of evaluations, with the part that is the browser's.
  Json evaluation_ = {{"result", {{"type", "undefined"}}}};
  std::vector<Tab> tabs_;
  /// A method that is not answered.
  std::string silentMethod_;
  FakeBrowser fake_{{.answer = [this](const Json& request) { return answer(request); }}};

 private:
  Reply answer(const Json& request) const {
    const std::string method = request.at("method");
    if (method == silentMethod_) return {};
    if (method == "Target.getTargets") {
      Json targets = Json::array();
      for (const Tab& tab : tabs_) targets.push_back(describe(tab));
      return FakeBrowser::result(request, {{"targetInfos", targets}});
    }
    if (method == "Runtime.evaluate") {
      if (request.at("params").at("expression") != "document.visibilityState") {
        return FakeBrowser::result(request, evaluation_);
      }
      const bool isShown = request.at("sessionId") == "session-of-shown";
      return FakeBrowser::result(request,
                                 {{"result", {{"value", isShown ? "visible" : "hidden"}}}});
    }
    const std::string id = request.at("params").at("targetId");
    const auto tab = std::ranges::find(tabs_, id, &Tab::id);
    if (tab == tabs_.end()) {
      return FakeBrowser::error(request, -32602, "No target with given id found");
    }
    if (method == "Browser.getWindowForTarget") {
      if (tab->window == 0) return FakeBrowser::error(request, -32000, "Browser window not found");
      return FakeBrowser::result(request, {{"windowId", tab->window}, {"bounds", Json::object()}});
    }
    if (method == "Target.getTargetInfo") {
      return FakeBrowser::result(request, {{"targetInfo", describe(*tab)}});
    }
    if (method == "Target.attachToTarget") {
      return FakeBrowser::result(request, {{"sessionId", "session-of-" + id}});
    }
    return FakeBrowser::result(request, Json::object());
  }

  static Json describe(const Tab& tab) {
    return {{"targetId", tab.id}, {"type", tab.type}, {"title", tab.title}, {"url", tab.url}};
  }

  RemoteBrowser browser_{{{.process = 1, .socket = fake_.address()}}, 10s};
};

TEST_F(RemoteBrowserTest, TabsAreGroupedByTheirWindows) {
  tabs_ = {{.id = "a", .window = 7}, {.id = "b", .window = 3}, {.id = "c", .window = 7}};
  EXPECT_EQ(windows(), (Windows{{.id = "7", .tabs = {"a", "c"}}, {.id = "3", .tabs = {"b"}}}));
  tabs_.clear();
  EXPECT_EQ(windows(), Windows{});
}

TEST_F(RemoteBrowserTest, WhatIsNoTabInAWindowIsLeftOut) {
  tabs_ = {{.id = "menu", .window = 7, .type = "browser_ui"},
           {.id = "ahead", .window = 0},
           {.id = "worker", .window = 7, .type = "service_worker"},
           {.id = "", .window = 7},
           {.id = "a", .window = 7}};
  EXPECT_EQ(windows(), (Windows{{.id = "7", .tabs = {"a"}}}));
}

TEST_F(RemoteBrowserTest, OfVeryManyTabsTheFirstAreSeen) {
  for (std::size_t number = 0; number <= RemoteBrowser::mostTabs; ++number) {
    tabs_.push_back({.id = "tab" + std::to_string(number), .window = 1});
  }
  const Windows found = windows();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].tabs.size(), RemoteBrowser::mostTabs);
  EXPECT_EQ(found[0].tabs.back(), "tab999");
}

TEST_F(RemoteBrowserTest, AllTabsAreAskedForTheirWindowsAtOnce) {
  tabs_ = {{.id = "a", .window = 7}, {.id = "b", .window = 3}};
  windows();
  EXPECT_THAT(asked(), ElementsAre("Target.getTargets", "Browser.getWindowForTarget a",
                                   "Browser.getWindowForTarget b"));
}

TEST_F(RemoteBrowserTest, AddressAndTitleAreThoseOfNow) {
  tabs_ = {{.id = "a", .window = 1, .title = "One", .url = "https://one.example/"}};
  EXPECT_EQ(browser().url("a"), BrowserResult<Text>("https://one.example/"));
  EXPECT_EQ(browser().title("a"), BrowserResult<Text>("One"));
  tabs_[0].title = "Two";
  EXPECT_EQ(browser().title("a"), BrowserResult<Text>("Two"));
  tabs_[0].title = "";
  EXPECT_EQ(browser().title("a"), BrowserResult<Text>(std::nullopt));
}

TEST_F(RemoteBrowserTest, ATabThatIsClosedIsGone) {
  const auto kind = [](const auto& result) { return std::get<BrowserFailure>(result).kind; };
  EXPECT_EQ(kind(browser().url("a")), Kind::gone);
  EXPECT_EQ(kind(browser().title("a")), Kind::gone);
  EXPECT_EQ(kind(browser().runJavaScript("a", "1")), Kind::gone);
  EXPECT_EQ(browser().selectTab("a").value().kind, Kind::gone);
  EXPECT_EQ(browser().bringToFront("7").value().kind, Kind::gone);
  EXPECT_EQ(browser().activate().value().kind, Kind::gone);
}

TEST_F(RemoteBrowserTest, AScriptRunsInItsPageAsIfAPersonHadCausedIt) {
  tabs_ = {{.id = "a", .window = 1}, {.id = "b", .window = 1}};
  evaluation_ = {{"result", {{"type", "string"}, {"value", "ok"}}}};
  EXPECT_EQ(browser().runJavaScript("b", "play()"), BrowserResult<Text>("ok"));
  EXPECT_THAT(asked(), ElementsAre("Target.attachToTarget b", "Runtime.evaluate in session-of-b"));
  const Json parameters = fake_.received().at(1).at("params");
  EXPECT_EQ(parameters.at("expression"), "play()");
  EXPECT_EQ(parameters.at("userGesture"), true);
  EXPECT_EQ(parameters.at("returnByValue"), true);
  EXPECT_EQ(fake_.received().at(0).at("params").at("flatten"), true);
}

TEST_F(RemoteBrowserTest, WhatAScriptComesToIsGivenAsText) {
  tabs_ = {{.id = "a", .window = 1}};
  const auto result = [&](const char* json) {
    evaluation_ = Json::parse(json);
    return std::get<Text>(browser().runJavaScript("a", "x"));
  };
  EXPECT_EQ(result(R"({"result":{"type":"string","value":""}})"), "");
  EXPECT_EQ(result(R"({"result":{"type":"boolean","value":true}})"), "true");
  EXPECT_EQ(result(R"({"result":{"type":"number","value":1,"description":"1"}})"), "1");
  EXPECT_EQ(result(R"({"result":{"type":"number","value":1e21,"description":"1e+21"}})"), "1e+21");
  EXPECT_EQ(result(R"({"result":{"type":"number","unserializableValue":"NaN"}})"), "NaN");
  EXPECT_EQ(result(R"({"result":{"type":"object","value":{"a":[1]}}})"), R"({"a":[1]})");
  EXPECT_EQ(result(R"({"result":{"type":"object","subtype":"null","value":null}})"), std::nullopt);
  EXPECT_EQ(result(R"({"result":{"type":"undefined"}})"), std::nullopt);
  EXPECT_EQ(result(R"({"result":{"value":1},"exceptionDetails":{"text":"Uncaught"}})"),
            std::nullopt);
  EXPECT_EQ(result(R"({"result":7})"), std::nullopt);
  EXPECT_EQ(result("{}"), std::nullopt);
}

TEST_F(RemoteBrowserTest, AWindowComesToFrontWithTheTabThatItShows) {
  tabs_ = {{.id = "a", .window = 1}, {.id = "other", .window = 2}, {.id = "shown", .window = 2}};
  EXPECT_EQ(browser().bringToFront("2"), std::nullopt);
  EXPECT_EQ(asked().back(), "Target.activateTarget shown");
  EXPECT_EQ(windows().front().id, "2");
  EXPECT_EQ(browser().activate(), std::nullopt);
  EXPECT_EQ(asked().back(), "Target.activateTarget shown");
}

TEST_F(RemoteBrowserTest, AWindowComesToFrontWithTheTabThatWasSelectedInIt) {
  tabs_ = {{.id = "a", .window = 1}, {.id = "other", .window = 2}, {.id = "shown", .window = 2}};
  EXPECT_EQ(browser().selectTab("other"), std::nullopt);
  EXPECT_EQ(asked(), Strings{"Target.activateTarget other"});
  EXPECT_EQ(browser().bringToFront("2"), std::nullopt);
  EXPECT_EQ(asked().back(), "Target.activateTarget other");
}

TEST_F(RemoteBrowserTest, ABrowserThatHangsCostsThePatience) {
  tabs_ = {{.id = "a", .window = 1}};
  for (const char* method : {"Target.getTargets", "Browser.getWindowForTarget"}) {
    silentMethod_ = method;
    RemoteBrowser hung({{.process = 1, .socket = fake_.address()}}, 200ms);
    const Uptime start = Clock::now();
    EXPECT_EQ(std::get<BrowserFailure>(hung.windows()).kind, Kind::timedOut) << method;
    EXPECT_GE(Clock::now() - start, 200ms);
    EXPECT_LT(Clock::now() - start, 5s);
  }
}

TEST_F(RemoteBrowserTest, APageThatHangsCostsThePatienceAndTheBrowserGoesOn) {
  tabs_ = {{.id = "a", .window = 1}};
  silentMethod_ = "Runtime.evaluate";
  RemoteBrowser browser({{.process = 1, .socket = fake_.address()}}, 300ms);
  const Uptime start = Clock::now();
  EXPECT_EQ(std::get<BrowserFailure>(browser.runJavaScript("a", "while(1);")).kind, Kind::timedOut);
  EXPECT_LT(Clock::now() - start, 5s);
  EXPECT_EQ(browser.title("a"), BrowserResult<Text>("Title"));
}

TEST_F(RemoteBrowserTest, AWindowWithPagesThatHangComesToFrontAllTheSame) {
  tabs_ = {{.id = "a", .window = 1}, {.id = "b", .window = 1}};
  silentMethod_ = "Runtime.evaluate";
  RemoteBrowser browser({{.process = 1, .socket = fake_.address()}}, 600ms);
  EXPECT_EQ(browser.bringToFront("1"), std::nullopt);
  EXPECT_EQ(asked().back(), "Target.activateTarget a");
}

TEST(RemoteBrowserConnection, WithoutABrowserOrItsSocketNothingCanBeAsked) {
  EXPECT_EQ(std::get<BrowserFailure>(RemoteBrowser(std::vector<BrowserInstance>()).windows()).kind,
            Kind::gone);
  EXPECT_EQ(std::get<BrowserFailure>(RemoteBrowser({BrowserInstance{.process = 1}}).windows()).kind,
            Kind::refused);
}

TEST(RemoteBrowserConnection, ANoteOfYesterdayIsNoSocket) {
  const FakeBrowser other;
  DebuggingAddress stale = other.address();
  stale.path += "-of-yesterday";
  RemoteBrowser browser({{.process = 1, .socket = stale}});
  EXPECT_EQ(std::get<BrowserFailure>(browser.windows()).kind, Kind::refused);
}

TEST(RemoteBrowserConnection, AHandshakeThatHangsCostsThePatience) {
  const FakeBrowser hung({.handshake = FakeBrowser::Handshake::hangs});
  RemoteBrowser browser({{.process = 1, .socket = hung.address()}}, 200ms);
  const Uptime start = Clock::now();
  EXPECT_EQ(std::get<BrowserFailure>(browser.windows()).kind, Kind::timedOut);
  EXPECT_LT(Clock::now() - start, 5s);
}

TEST(RemoteBrowserConnection, TheFirstInstanceThatAnswersIsSpokenTo) {
  const FakeBrowser first;
  DebuggingAddress stale = first.address();
  stale.path += "-of-yesterday";
  const FakeBrowser second({.answer = [](const Json& request) {
    return FakeBrowser::result(request, {{"targetInfos", Json::array()}});
  }});
  RemoteBrowser browser({{.process = 1},
                         {.process = 2, .socket = stale},
                         {.process = 3, .socket = second.address()}});
  EXPECT_EQ(std::get<Windows>(browser.windows()), Windows{});
}

TEST(RemoteBrowserConnection, AConnectionThatHasEndedIsReplaced) {
  const FakeBrowser fake({.answer = [](const Json& request) {
    Reply reply = FakeBrowser::result(request, {{"targetInfos", Json::array()}});
    reply.closes = true;
    return reply;
  }});
  RemoteBrowser browser({{.process = 1, .socket = fake.address()}}, 10s);
  EXPECT_EQ(std::get<Windows>(browser.windows()), Windows{});
  // The end is noticed by asking.
  EXPECT_EQ(std::get<BrowserFailure>(browser.windows()).kind, Kind::gone);
  EXPECT_EQ(std::get<Windows>(browser.windows()), Windows{});
}

}  // namespace
}  // namespace talmo::test
