#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/macos/network/HttpsTransfer.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;

class HttpsTransferTest : public testing::Test {
 protected:
  static std::string url(int number) { return "https://example.com/" + std::to_string(number); }

  void expectFailure(const std::string& words) {
    EXPECT_THAT(results_, ElementsAre(NetworkResult{.error = words}));
  }

  std::vector<NetworkResult> results_;
  HttpsTransfer transfer_{[this](NetworkResult result) { results_.push_back(std::move(result)); }};
};

TEST_F(HttpsTransferTest, GivesTheStatusAndTheWholeBody) {
  EXPECT_TRUE(transfer_.receive("the "));
  EXPECT_TRUE(transfer_.receive(""));
  EXPECT_TRUE(transfer_.receive("page"));
  transfer_.complete(std::nullopt, 404);
  EXPECT_THAT(results_, ElementsAre(NetworkResult{.status = 404, .body = "the page"}));
}

TEST_F(HttpsTransferTest, GivesNothingBesideAnErrorOfTheSystem) {
  EXPECT_TRUE(transfer_.receive("half"));
  transfer_.complete("the connection was lost", 200);
  expectFailure("the connection was lost");
}

TEST_F(HttpsTransferTest, FollowsRedirectsThatStayOnHttps) {
  EXPECT_TRUE(transfer_.follow("https://other.example.com/page"));
  EXPECT_TRUE(transfer_.follow("https://example.com/"));
  transfer_.complete(std::nullopt, 200);
  EXPECT_THAT(results_, ElementsAre(NetworkResult{.status = 200}));
}

TEST_F(HttpsTransferTest, FailsAtARedirectToLess) {
  EXPECT_FALSE(transfer_.follow("http://example.com/"));
  EXPECT_FALSE(transfer_.receive("what came of the redirect"));
  transfer_.complete("cancelled", 302);
  expectFailure("the URL is not an HTTPS one");
}

TEST_F(HttpsTransferTest, FollowsFiveRedirectsAndNoSixth) {
  for (int number = 1; number <= 5; ++number) EXPECT_TRUE(transfer_.follow(url(number)));
  EXPECT_FALSE(transfer_.follow(url(6)));
  transfer_.complete("cancelled", 302);
  expectFailure("there are too many redirects");
}

TEST_F(HttpsTransferTest, FailsWhenItTakesTooLong) {
  EXPECT_TRUE(transfer_.receive("half"));
  transfer_.expire();
  EXPECT_FALSE(transfer_.receive("what comes too late"));
  transfer_.complete("cancelled", 200);
  expectFailure("there is no whole answer in time");
}

TEST_F(HttpsTransferTest, KeepsItsFirstFailure) {
  EXPECT_FALSE(transfer_.follow("http://example.com/"));
  transfer_.expire();
  transfer_.complete("cancelled", 302);
  expectFailure("the URL is not an HTTPS one");
}

TEST_F(HttpsTransferTest, TakesABodyAsLargeAsTheBoundAndNoLarger) {
  EXPECT_TRUE(transfer_.receive(std::string(Network::largestBody, 'x')));
  EXPECT_TRUE(transfer_.receive(""));
  EXPECT_FALSE(transfer_.receive("y"));
  EXPECT_FALSE(transfer_.receive("a piece that was under way"));
  transfer_.complete("cancelled", 200);
  expectFailure("the answer is too large");
}

TEST_F(HttpsTransferTest, AFailureOfItsOwnCountsAlsoWhereTheSystemSeesNone) {
  EXPECT_FALSE(transfer_.receive(std::string(Network::largestBody + 1, 'x')));
  transfer_.complete(std::nullopt, 200);
  expectFailure("the answer is too large");
}

}  // namespace
}  // namespace talmo::test
