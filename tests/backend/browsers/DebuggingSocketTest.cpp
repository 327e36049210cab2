#include <chrono>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/browsers/DebuggingSocket.h"
#include "tests/backend/browsers/FakeBrowser.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Clock = std::chrono::steady_clock;
using Handshake = FakeBrowser::Handshake;
using Reply = FakeBrowser::Reply;

Uptime in(Duration time) {
  return Clock::now() + time;
}

std::unique_ptr<DebuggingSocket> connected(const FakeBrowser& browser) {
  auto socket = DebuggingSocket::connect(browser.address(), in(10s));
  EXPECT_NE(socket, nullptr);
  return socket;
}

/// What comes when the browser replies so to a message.
std::optional<std::string> received(const Reply& reply) {
  const FakeBrowser browser({.answer = [&](const auto&) { return reply; }});
  const auto socket = connected(browser);
  EXPECT_TRUE(socket->send("{}", in(10s)));
  auto text = socket->receive(in(10s));
  EXPECT_EQ(socket->isOpen(), text.has_value());
  EXPECT_EQ(socket->send("{}", in(10s)), text.has_value());
  return text;
}

/// How long a failing attempt takes.
Duration timeOfRefusal(const DebuggingAddress& address, Duration patience) {
  const Uptime start = Clock::now();
  EXPECT_EQ(DebuggingSocket::connect(address, start + patience), nullptr);
  return Clock::now() - start;
}

TEST(DebuggingSocket, ItAsksForThePathOnTheLoopbackInterfaceAndNamesNoOrigin) {
  const FakeBrowser browser;
  connected(browser);
  ASSERT_EQ(browser.handshakes().size(), 1U);
  const std::string request = browser.handshakes().front();
  EXPECT_THAT(request, StartsWith("GET " + browser.address().path + " HTTP/1.1\r\n"));
  EXPECT_THAT(request, HasSubstr("Host: 127.0.0.1:" + std::to_string(browser.address().port)));
  EXPECT_THAT(request, Not(HasSubstr("Origin")));
}

TEST(DebuggingSocket, WhoeverDoesNotKnowThePathIsNotTheBrowser) {
  const FakeBrowser browser;
  DebuggingAddress stale = browser.address();
  stale.path += "-of-yesterday";
  EXPECT_LT(timeOfRefusal(stale, 10s), 5s);
  EXPECT_EQ(browser.handshakes().size(), 1U);
}

TEST(DebuggingSocket, AnotherProgramAtThePortIsNotTheBrowser) {
  const FakeBrowser browser({.handshake = Handshake::talksNonsense});
  EXPECT_LT(timeOfRefusal(browser.address(), 10s), 5s);
}

TEST(DebuggingSocket, NobodyAtThePortIsNoticedAtOnce) {
  DebuggingAddress address;
  {
    const FakeBrowser browser;
    address = browser.address();
  }
  EXPECT_LT(timeOfRefusal(address, 10s), 5s);
}

TEST(DebuggingSocket, OtherAddressesOfThisMachineAreNotTried) {
  const FakeBrowser elsewhere({.host = "127.0.0.2"});
  timeOfRefusal(elsewhere.address(), 10s);
  EXPECT_EQ(elsewhere.handshakes().size(), 0U);
}

TEST(DebuggingSocket, AHandshakeThatIsNotAnsweredCostsThePatience) {
  const FakeBrowser browser({.handshake = Handshake::hangs});
  const Duration taken = timeOfRefusal(browser.address(), 200ms);
  EXPECT_GE(taken, 200ms);
  EXPECT_LT(taken, 5s);
}

TEST(DebuggingSocket, TextsComeAsTheyWereSent) {
  EXPECT_EQ(received({.texts = {"a\xc3\xa4\xf0\x9f\x98\x80"}}), "a\xc3\xa4\xf0\x9f\x98\x80");
  EXPECT_EQ(received({.texts = {""}}), "");
  const std::string longest(DebuggingSocket::longestMessage, 'x');
  EXPECT_TRUE(received({.texts = {longest}}) == longest);
}

TEST(DebuggingSocket, AMessageThatIsTooLongEndsTheConnection) {
  EXPECT_EQ(received({.texts = {std::string(DebuggingSocket::longestMessage + 1, 'x')}}),
            std::nullopt);
  // The head of a frame of 2^62 bytes.
  EXPECT_EQ(received({.bytes = std::string("\x81\x7f\x40\0\0\0\0\0\0\0", 10)}), std::nullopt);
}

TEST(DebuggingSocket, WhatIsNoTextEndsTheConnection) {
  EXPECT_EQ(received({.texts = {"\xff\xfe"}}), std::nullopt);
  EXPECT_EQ(received({.bytes = "no frame at all"}), std::nullopt);
}

TEST(DebuggingSocket, ABrowserThatEndsTheConnectionIsNoticed) {
  EXPECT_EQ(received({.closes = true}), std::nullopt);
  // In the middle of a message of ten bytes.
  EXPECT_EQ(received({.bytes = "\x81\x0a"
                               "abc",
                      .closes = true}),
            std::nullopt);
}

TEST(DebuggingSocket, WhatComesTooLateComesWithTheNextCall) {
  const FakeBrowser browser({.answer = [](const auto&) { return Reply{.texts = {"late"}}; }});
  const auto socket = connected(browser);
  const Uptime start = Clock::now();
  EXPECT_EQ(socket->receive(start + 100ms), std::nullopt);
  EXPECT_GE(Clock::now() - start, 100ms);
  EXPECT_TRUE(socket->isOpen());
  EXPECT_TRUE(socket->send("{}", in(10s)));
  EXPECT_EQ(socket->receive(in(10s)), "late");
}

}  // namespace
}  // namespace talmo::test
