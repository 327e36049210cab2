#include "tests/contract/NetworkContract.h"

#include <atomic>
#include <thread>
#include <utility>

#include <gmock/gmock.h>

#include "support/UrlQuery.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Longer than any buffer on the way, with every byte in it.
std::string manyBytes() {
  std::string bytes;
  for (int index = 0; index < 300'000; ++index) bytes += static_cast<char>(index % 251 + index);
  return bytes;
}

bool isFailure(const NetworkResult& result) {
  return result.error && !result.error->empty() && result.status == 0 && result.body.empty();
}

}  // namespace

std::shared_ptr<NetworkRecord> NetworkContract::start(const std::string& url) {
  auto record = std::make_shared<NetworkRecord>();
  world().network().get(url, [record](NetworkResult result) { record->add(std::move(result)); });
  return record;
}

NetworkResult NetworkContract::fetch(const std::string& url) {
  const auto record = start(url);
  if (!runUntil([&] { return record->count() > 0; })) {
    ADD_FAILURE() << "no end of the request for " << url;
    return {};
  }
  return record->results().front();
}

TEST_P(NetworkContract, AnAnswerHasItsStatusAndBody) {
  world().publish("/page", {.status = 200, .body = "the page"});
  EXPECT_EQ(fetch(world().url("/page")), (NetworkResult{.status = 200, .body = "the page"}));
}

TEST_P(NetworkContract, AStatusOfAnErrorIsAnAnswer) {
  world().publish("/moved-out", {.status = 410, .body = "gone"});
  world().publish("/broken", {.status = 500});
  EXPECT_EQ(fetch(world().url("/moved-out")), (NetworkResult{.status = 410, .body = "gone"}));
  EXPECT_EQ(fetch(world().url("/broken")), (NetworkResult{.status = 500}));
  EXPECT_EQ(fetch(world().url("/missing")).status, 404);
}

TEST_P(NetworkContract, ABodyIsGivenByteForByte) {
  const std::string bytes = manyBytes();
  world().publish("/bytes", {.body = bytes});
  EXPECT_TRUE(fetch(world().url("/bytes")).body == bytes);
}

TEST_P(NetworkContract, ABodyMayBeAsLargeAsTheBoundAndNoLarger) {
  world().publish("/largest", {.body = std::string(Network::largestBody, 'x')});
  world().publish("/larger", {.body = std::string(Network::largestBody + 1, 'x')});
  const NetworkResult largest = fetch(world().url("/largest"));
  EXPECT_EQ(largest.error, std::nullopt);
  EXPECT_EQ(largest.body.size(), Network::largestBody);
  EXPECT_TRUE(isFailure(fetch(world().url("/larger"))));
}

TEST_P(NetworkContract, TheCompletionIsCalledOnceAndNotOnTheMainThread) {
  world().publish("/page", {.body = "the page"});
  for (const std::string& url : {world().url("/page"), world().deadUrl(), std::string("no URL")}) {
    const auto calls = std::make_shared<std::atomic<int>>(0);
    const auto isOnMain = std::make_shared<std::atomic<bool>>(false);
    world().network().get(url, [this, calls, isOnMain](const NetworkResult&) {
      if (world().dispatch().isMainThread()) *isOnMain = true;
      ++*calls;
    });
    EXPECT_TRUE(runUntil([calls] { return calls->load() > 0; })) << url;
    fetch(world().url("/page"));
    EXPECT_EQ(calls->load(), 1) << url;
    EXPECT_FALSE(isOnMain->load()) << url;
  }
}

TEST_P(NetworkContract, ACompletionMayStartAnotherRequest) {
  world().publish("/first", {.body = "/second"});
  world().publish("/second", {.body = "the end"});
  const auto record = std::make_shared<NetworkRecord>();
  world().network().get(world().url("/first"), [this, record](const NetworkResult& first) {
    world().network().get(world().url(first.body),
                          [record](NetworkResult second) { record->add(std::move(second)); });
  });
  ASSERT_TRUE(runUntil([&] { return record->count() > 0; }));
  EXPECT_EQ(record->results().front().body, "the end");
}

TEST_P(NetworkContract, RequestsAtOnceEachGetTheirOwnAnswer) {
  constexpr int count = 20;
  std::vector<std::shared_ptr<NetworkRecord>> records;
  for (int index = 0; index < count; ++index) {
    const std::string target = "/" + std::to_string(index);
    world().publish(target, {.body = "page " + std::to_string(index)});
    records.push_back(start(world().url(target)));
  }
  for (int index = 0; index < count; ++index) {
    const auto& record = records[static_cast<std::size_t>(index)];
    ASSERT_TRUE(runUntil([&] { return record->count() > 0; })) << index;
    EXPECT_EQ(record->results().front().body, "page " + std::to_string(index));
  }
}

TEST_P(NetworkContract, ASilentServerHoldsUpNobodyElse) {
  world().publish("/silence", {.isSilent = true});
  world().publish("/page", {.body = "the page"});
  const auto silence = start(world().url("/silence"));
  EXPECT_EQ(fetch(world().url("/page")).body, "the page");
  EXPECT_EQ(silence->count(), 0U);
}

TEST_P(NetworkContract, ASilentServerIsAFailureInTheEnd) {
  world().shortenTimeout();
  world().publish("/silence", {.isSilent = true});
  EXPECT_TRUE(isFailure(fetch(world().url("/silence"))));
}

TEST_P(NetworkContract, AServerThatIsNotThereIsAFailure) {
  EXPECT_TRUE(isFailure(fetch(world().deadUrl())));
}

TEST_P(NetworkContract, NothingButHttpsIsFetched) {
  world().publish("/page", {.body = "the page"});
  const std::string https = world().url("/page");
  const std::string rest = https.substr(std::string("https").size());
  const std::vector<std::string> refused{"http" + rest,
                                         "ftp" + rest,
                                         "file:///etc/hostname",
                                         "data:,the%20page",
                                         rest.substr(3),
                                         "/page",
                                         "https:",
                                         "https://",
                                         "https:///page",
                                         "no URL",
                                         "",
                                         https + std::string(1, '\0') + "more"};
  for (const std::string& url : refused) {
    EXPECT_TRUE(isFailure(fetch(url))) << url;
  }
  EXPECT_THAT(world().requested(), IsEmpty());
  EXPECT_EQ(fetch("HTTPS" + rest).body, "the page");
}

TEST_P(NetworkContract, AQueryArrivesAsItWasWritten) {
  const UrlQuery query{.items = {{"term", "a+b c&d=\u00E9#"}, {"limit", "5"}}};
  const std::string target = "/search?" + query.percentEncoded();
  world().publish(target, {.body = "found"});
  EXPECT_EQ(fetch(world().url(target)).body, "found");
  EXPECT_THAT(world().requested(), ElementsAre("/search?term=a%2Bb%20c%26d%3D%C3%A9%23&limit=5"));
}

}  // namespace talmo::test
