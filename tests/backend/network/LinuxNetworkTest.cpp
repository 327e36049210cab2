#include <chrono>
#include <cstdlib>
#include <fstream>
#include <future>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/network/LinuxNetwork.h"
#include "tests/backend/network/Listener.h"
#include "tests/backend/network/NetworkDesk.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::SizeIs;
using testing::StartsWith;

/// The words of a failure; empty when there was an answer.
std::string failure(const NetworkResult& result) {
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.body, IsEmpty());
  return result.error.value_or("");
}

class LinuxNetworkTest : public testing::Test {
 protected:
  std::string url(const std::string& target) { return desk.server().url(target); }

  /// The server sends whoever asks for `from` on to `to`.
  void redirect(const std::string& from, const std::string& to) {
    desk.publish(from, {.status = 302, .headers = {{"Location", to}}});
  }

  NetworkDesk desk;
};

TEST_F(LinuxNetworkTest, TrustsNoCertificateOfAnUnknownAuthority) {
  LinuxNetwork network;
  EXPECT_THAT(failure(NetworkDesk::fetch(network, url("/"))), HasSubstr("certificate"));

  const NetworkDesk other;
  EXPECT_THAT(failure(other.fetch(url("/"))), Not(IsEmpty()));
  EXPECT_THAT(desk.requested(), IsEmpty());
}

TEST_F(LinuxNetworkTest, TrustsNoCertificateForAnotherName) {
  NetworkDesk named("DNS:localhost");
  named.publish("/", {.body = "the page"});
  EXPECT_THAT(failure(named.fetch(named.server().url("/", "127.0.0.1"))), HasSubstr("127.0.0.1"));
  EXPECT_THAT(named.requested(), IsEmpty());
  EXPECT_EQ(named.fetch(named.server().url("/", "localhost")).body, "the page");
}

TEST_F(LinuxNetworkTest, MakesNoConnectionForPlainHttp) {
  const Listener plain;
  const std::string there = "://127.0.0.1:" + std::to_string(plain.port()) + "/";
  LinuxNetwork network(desk.settings());
  EXPECT_THAT(failure(NetworkDesk::fetch(network, "http" + there)), HasSubstr("HTTPS"));
  EXPECT_FALSE(plain.isAsked());

  network.get("https" + there, [](const NetworkResult&) {});
  EXPECT_TRUE(waitUntil([&] { return plain.isAsked(); }, 20s)) << "the port takes connections";
}

TEST_F(LinuxNetworkTest, FollowsRedirects) {
  desk.publish("/end", {.status = 200, .body = "the end"});
  redirect("/relative", "/end");
  redirect("/start", url("/relative"));
  EXPECT_EQ(desk.fetch(url("/start")), (NetworkResult{.status = 200, .body = "the end"}));
}

TEST_F(LinuxNetworkTest, FollowsNoRedirectThatLeavesHttps) {
  const Listener plain;
  redirect("/http", "http://127.0.0.1:" + std::to_string(plain.port()) + "/");
  redirect("/file", "file:///etc/hostname");
  EXPECT_THAT(failure(desk.fetch(url("/http"))), HasSubstr("HTTPS"));
  EXPECT_THAT(failure(desk.fetch(url("/file"))), HasSubstr("HTTPS"));
  EXPECT_FALSE(plain.isAsked());
  EXPECT_THAT(desk.requested(), ElementsAre("/http", "/file"));
}

TEST_F(LinuxNetworkTest, FollowsNoMoreThanFiveRedirects) {
  for (int step = 0; step < 7; ++step) {
    redirect("/" + std::to_string(step), "/" + std::to_string(step + 1));
  }
  desk.publish("/7", {.body = "the end"});
  EXPECT_EQ(desk.fetch(url("/2")).body, "the end");
  EXPECT_THAT(failure(desk.fetch(url("/1"))), HasSubstr("redirect"));
  redirect("/loop", "/loop");
  EXPECT_THAT(failure(desk.fetch(url("/loop"))), HasSubstr("redirect"));
}

TEST_F(LinuxNetworkTest, GivesACompressedBodyAsItWas) {
  const std::string text(100'000, 'x');
  desk.publish("/text", {.body = text, .isCompressed = true});
  EXPECT_TRUE(desk.fetch(url("/text")).body == text);
  ASSERT_THAT(desk.server().requests(), SizeIs(1));
  EXPECT_THAT(desk.server().requests().front().headers, Contains(Pair("Accept-Encoding", "gzip")));
}

TEST_F(LinuxNetworkTest, BoundsWhatACompressedBodyBecomes) {
  // A few tens of kilobytes on the way.
  const std::string zeros(Network::largestBody + 1, '\0');
  desk.publish("/zeros", {.body = zeros, .isCompressed = true});
  EXPECT_THAT(failure(desk.fetch(url("/zeros"))), HasSubstr("too large"));
  desk.publish("/fewer", {.body = zeros.substr(1), .isCompressed = true});
  EXPECT_EQ(desk.fetch(url("/fewer")).body.size(), Network::largestBody);
}

TEST_F(LinuxNetworkTest, LeavesAnEndlessBody) {
  desk.publish("/endless", {.body = std::string(100'000, 'x'), .isEndless = true});
  EXPECT_THAT(failure(desk.fetch(url("/endless"))), HasSubstr("too large"));
}

TEST_F(LinuxNetworkTest, FailsWhenTheBodyIsShorterThanWasSaid) {
  desk.publish("/short", {.body = "the beginning", .claimedLength = 100});
  desk.publish("/huge", {.body = "the beginning", .claimedLength = std::size_t{1} << 40});
  EXPECT_THAT(failure(desk.fetch(url("/short"))), Not(IsEmpty()));
  EXPECT_THAT(failure(desk.fetch(url("/huge"))), Not(IsEmpty()));
}

TEST_F(LinuxNetworkTest, ReadsNoMoreThanTheLengthThatWasSaid) {
  desk.publish("/long", {.body = "the page and more", .claimedLength = 8});
  EXPECT_EQ(desk.fetch(url("/long")).body, "the page");
}

TEST_F(LinuxNetworkTest, FailsWhenTheServerHangsUp) {
  const Listener listener;
  const auto hangUp = std::async(std::launch::async, [&] { listener.accept(); });
  const std::string there = "https://127.0.0.1:" + std::to_string(listener.port()) + "/";
  EXPECT_THAT(failure(desk.fetch(there)), Not(IsEmpty()));
}

TEST_F(LinuxNetworkTest, FailsWhenTheServerStaysSilent) {
  desk.publish("/silence", {.isSilent = true});
  NetworkSettings settings = desk.settings();
  settings.timeout = 200ms;
  LinuxNetwork network(settings);
  EXPECT_THAT(failure(NetworkDesk::fetch(network, url("/silence"))), HasSubstr("timed out"));
}

TEST_F(LinuxNetworkTest, FailsWhenAnAnswerTakesTooLongInAll) {
  // Each piece comes in time, and the end never.
  desk.publish("/drip", {.body = "x", .isEndless = true});
  NetworkSettings settings = desk.settings();
  settings.timeout = 200ms;
  LinuxNetwork network(settings);
  EXPECT_THAT(failure(NetworkDesk::fetch(network, url("/drip"))), HasSubstr("timed out"));
}

TEST_F(LinuxNetworkTest, WaitsLessForAConnectionThanForAnAnswer) {
  const Listener listener;
  NetworkSettings settings = desk.settings();
  settings.connectTimeout = 200ms;
  LinuxNetwork network(settings);
  const std::string there = "https://127.0.0.1:" + std::to_string(listener.port()) + "/";
  EXPECT_THAT(failure(NetworkDesk::fetch(network, there)), Not(IsEmpty()));
}

TEST_F(LinuxNetworkTest, SaysWhoItIs) {
  desk.fetch(url("/"));
  ASSERT_THAT(desk.server().requests(), SizeIs(1));
  EXPECT_THAT(desk.server().requests().front().headers,
              Contains(Pair("User-Agent", StartsWith("Talmo/"))));
}

TEST_F(LinuxNetworkTest, KeepsNoCookies) {
  desk.publish(
      "/", {.status = 302, .headers = {{"Location", "/end"}, {"Set-Cookie", "kept=1; Path=/"}}});
  LinuxNetwork network(desk.settings());
  NetworkDesk::fetch(network, url("/"));
  ASSERT_THAT(desk.server().requests(), SizeIs(2));
  EXPECT_THAT(desk.server().requests().back().headers, Not(Contains(Pair("Cookie", testing::_))));
}

TEST_F(LinuxNetworkTest, GivesNobodyThePasswordsOfTheHomeFolder) {
  std::ofstream(desk.folder() / ".netrc") << "machine 127.0.0.1 login me password secret\n";
  const std::string home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
  ::setenv("HOME", desk.folder().c_str(), 1);
  desk.fetch(url("/"));
  ::setenv("HOME", home.c_str(), 1);
  ASSERT_THAT(desk.server().requests(), SizeIs(1));
  EXPECT_THAT(desk.server().requests().front().headers,
              Not(Contains(Pair("Authorization", testing::_))));
}

}  // namespace
}  // namespace talmo::test
