#include <chrono>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/browsers/DebuggingConnection.h"
#include "tests/backend/browsers/FakeBrowser.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Json = nlohmann::json;
using Kind = BrowserFailure::Kind;
using Reply = FakeBrowser::Reply;
using Result = BrowserResult<Json>;

Uptime in(Duration time) {
  return Clock::now() + time;
}

/// A connection to a browser that answers so.
class Connected {
 public:
  explicit Connected(std::function<Reply(const Json& request)> answer)
      : browser_({.answer = std::move(answer)}),
        connection_(DebuggingSocket::connect(browser_.address(), in(10s))) {}

  std::vector<Result> callAll(const std::vector<std::string>& methods, Duration patience = 10s) {
    std::vector<DebuggingRequest> requests;
    for (const std::string& method : methods) requests.push_back({.method = method});
    return connection_.callAll(requests, in(patience));
  }

  Result call(const std::string& method, Duration patience = 10s) {
    return connection_.call({.method = method}, in(patience));
  }

  FakeBrowser& browser() { return browser_; }
  DebuggingConnection& connection() { return connection_; }

 private:
  FakeBrowser browser_;
  DebuggingConnection connection_;
};

std::string text(const Result& result) {
  const auto* json = std::get_if<Json>(&result);
  return json == nullptr ? "failure: " + std::get<BrowserFailure>(result).message : json->dump();
}

std::optional<Kind> failure(const Result& result) {
  const auto* failed = std::get_if<BrowserFailure>(&result);
  return failed == nullptr ? std::nullopt : std::optional(failed->kind);
}

Reply echo(const Json& request) {
  return FakeBrowser::result(request, {{"of", request.at("method")}});
}

TEST(DebuggingConnection, ARequestSaysWhatIsWantedOfWhom) {
  Connected connected(echo);
  const Result result = connected.connection().call(
      {.method = "Runtime.evaluate", .parameters = {{"expression", "1"}}, .session = "S1"},
      in(10s));
  EXPECT_EQ(text(result), R"({"of":"Runtime.evaluate"})");
  ASSERT_EQ(connected.browser().received().size(), 1U);
  const Json request = connected.browser().received().front();
  EXPECT_EQ(request.at("method"), "Runtime.evaluate");
  EXPECT_EQ(request.at("params"), (Json{{"expression", "1"}}));
  EXPECT_EQ(request.at("sessionId"), "S1");
}

TEST(DebuggingConnection, ARequestForTheBrowserNamesNoSession) {
  Connected connected(echo);
  connected.call("Target.getTargets");
  const Json request = connected.browser().received().at(0);
  EXPECT_FALSE(request.contains("sessionId"));
  EXPECT_EQ(request.at("params"), Json::object());
}

TEST(DebuggingConnection, AnswersComeInTheOrderOfTheRequestsHoweverTheyArrive) {
  std::vector<std::string> held;
  Connected connected([&](const Json& request) {
    held.insert(held.begin(), echo(request).texts.front());
    return held.size() < 3 ? Reply{} : Reply{.texts = held};
  });
  const std::vector<Result> results = connected.callAll({"A", "B", "C"});
  ASSERT_EQ(results.size(), 3U);
  EXPECT_EQ(text(results[0]), R"({"of":"A"})");
  EXPECT_EQ(text(results[1]), R"({"of":"B"})");
  EXPECT_EQ(text(results[2]), R"({"of":"C"})");
  EXPECT_TRUE(connected.callAll({}).empty());
}

TEST(DebuggingConnection, EventsAndWhatNobodyAskedForArePassedOver) {
  Connected connected([](const Json& request) {
    const std::string number = request.at("id").dump();
    return Reply{.texts = {R"({"method":"Target.targetCreated","params":{}})", "", "garbage", "[]",
                           "7", "null", R"({"id":"1"})", R"({"id":1.5})",
                           R"({"id":-9223372036854775808})", R"({"id":18446744073709551615})",
                           R"({"id":99})", std::string(100'000, '['), echo(request).texts.front()}};
  });
  EXPECT_EQ(text(connected.call("A")), R"({"of":"A"})");
  EXPECT_EQ(text(connected.call("B")), R"({"of":"B"})");
}

TEST(DebuggingConnection, AnswersOfAnyShapeAreObjectsOrErrors) {
  Connected connected([](const Json& request) {
    const std::string id = R"({"id":)" + request.at("id").dump();
    const std::string method = request.at("method");
    return Reply{.texts = {id + method + "}"}};
  });
  EXPECT_EQ(text(connected.call("")), "{}");
  EXPECT_EQ(text(connected.call(R"(,"result":[1])")), "{}");
  EXPECT_EQ(text(connected.call(R"(,"result":null)")), "{}");
  EXPECT_EQ(failure(connected.call(R"(,"error":"no")")), Kind::refused);
  EXPECT_EQ(failure(connected.call(R"(,"error":{"code":"x","message":7})")), Kind::refused);
}

TEST(DebuggingConnection, ErrorsSayWhetherThePageIsGone) {
  Connected connected([](const Json& request) {
    return FakeBrowser::error(request, std::stoi(request.at("method").get<std::string>()), "why");
  });
  for (const char* code : {"-32602", "-32001"}) {
    EXPECT_EQ(std::get<BrowserFailure>(connected.call(code)),
              (BrowserFailure{.kind = Kind::gone, .message = "why"}));
  }
  EXPECT_EQ(std::get<BrowserFailure>(connected.call("-32000")),
            (BrowserFailure{.kind = Kind::refused, .message = "why"}));
}

TEST(DebuggingConnection, HalvesOfSurrogatePairsAreReplaced) {
  Connected connected([](const Json& request) {
    return Reply{.texts = {R"({"id":)" + request.at("id").dump() + R"(,"result":{"t":")" +
                           request.at("method").get<std::string>() + R"("}})"}};
  });
  const std::vector<std::pair<std::string, std::string>> texts{
      {R"(a\ud800b)",
       "a\xef\xbf\xbd"
       "b"},
      {R"(\udc00)", "\xef\xbf\xbd"},
      {R"(\ud83d\ude00)", "\xf0\x9f\x98\x80"},
      {R"(\ud83d\ude00\ud83d)", "\xf0\x9f\x98\x80\xef\xbf\xbd"},
      {R"(\ud83d\ud83d\ude00)", "\xef\xbf\xbd\xf0\x9f\x98\x80"},
      // An escaped backslash, and what looks like an escape after it.
      {R"(\\ud800\ud800)", "\\ud800\xef\xbf\xbd"},
      {R"(\ud800\n)", "\xef\xbf\xbd\n"}};
  for (const auto& [sent, understood] : texts) {
    const Result result = connected.call(sent);
    ASSERT_EQ(failure(result), std::nullopt) << sent;
    EXPECT_EQ(std::get<Json>(result).at("t"), understood) << sent;
  }
  // No JSON before and none after.
  EXPECT_EQ(failure(connected.call(R"(\ud8)", 100ms)), Kind::timedOut);
}

TEST(DebuggingConnection, TextsThatAreNoUtf8AreSentAllTheSame) {
  Connected connected(echo);
  EXPECT_EQ(text(connected.call("\xff")), "{\"of\":\"\xef\xbf\xbd\"}");
}

TEST(DebuggingConnection, OneThatIsNotAnsweredCostsThePatienceAndNobodyItsAnswer) {
  Connected connected(
      [](const Json& request) { return request.at("method") == "B" ? Reply{} : echo(request); });
  const Uptime start = Clock::now();
  const std::vector<Result> results = connected.callAll({"A", "B", "C"}, 300ms);
  EXPECT_GE(Clock::now() - start, 300ms);
  EXPECT_LT(Clock::now() - start, 5s);
  EXPECT_EQ(text(results[0]), R"({"of":"A"})");
  EXPECT_EQ(failure(results[1]), Kind::timedOut);
  EXPECT_EQ(text(results[2]), R"({"of":"C"})");
  EXPECT_EQ(text(connected.call("D")), R"({"of":"D"})");
}

TEST(DebuggingConnection, ABrowserThatTalksAllTheTimeCostsNoMoreThanThePatience) {
  Connected connected([](const Json&) {
    return Reply{.texts = std::vector<std::string>(200'000, R"({"method":"Log.entryAdded"})")};
  });
  const Uptime start = Clock::now();
  EXPECT_EQ(failure(connected.call("A", 200ms)), Kind::timedOut);
  EXPECT_LT(Clock::now() - start, 5s);
}

TEST(DebuggingConnection, ABrowserThatEndsMidwayIsGone) {
  Connected connected([](const Json& request) {
    return request.at("method") == "B" ? Reply{.closes = true} : echo(request);
  });
  const std::vector<Result> results = connected.callAll({"A", "B", "C"});
  EXPECT_EQ(text(results[0]), R"({"of":"A"})");
  EXPECT_EQ(failure(results[1]), Kind::gone);
  EXPECT_EQ(failure(results[2]), Kind::gone);
  EXPECT_FALSE(connected.connection().isOpen());
  EXPECT_EQ(failure(connected.call("D")), Kind::gone);
}

}  // namespace
}  // namespace talmo::test
