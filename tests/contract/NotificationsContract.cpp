#include "tests/contract/NotificationsContract.h"

#include <atomic>
#include <set>
#include <string>
#include <vector>

namespace talmo::test {

void NotificationsContract::settle() {
  std::atomic<bool> hasSettled = false;
  const Notifications::Token token =
      notifications().addObserver("settled", [&] { hasSettled = true; });
  notifications().post("settled");
  EXPECT_TRUE(runUntil([&] { return hasSettled.load(); }));
  notifications().removeObserver(token);
}

TEST_P(NotificationsContract, ANoticeReachesTheObserversOfItsName) {
  int first = 0;
  int second = 0;
  int other = 0;
  notifications().addObserver("name", [&] { ++first; });
  notifications().addObserver("name", [&] { ++second; });
  notifications().addObserver("another", [&] { ++other; });
  notifications().post("name");
  settle();
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 1);
  EXPECT_EQ(other, 0);
  notifications().post("name");
  notifications().post("name");
  settle();
  EXPECT_EQ(first, 3);
}

TEST_P(NotificationsContract, ANoticeArrivesOnTheMainQueueAndNotAtOnce) {
  int count = 0;
  bool isMain = false;
  notifications().addObserver("name", [&] {
    ++count;
    isMain = dispatch().isMainThread();
  });
  notifications().post("name");
  EXPECT_EQ(count, 0);
  settle();
  EXPECT_EQ(count, 1);
  EXPECT_TRUE(isMain);
}

TEST_P(NotificationsContract, ANoticeFromAnotherThreadArrivesOnTheMainQueue) {
  std::atomic<int> count = 0;
  std::atomic<bool> isMain = false;
  notifications().addObserver("name", [&] {
    isMain = dispatch().isMainThread();
    ++count;
  });
  dispatch().globalQueue(QualityOfService::utility).async([this] { notifications().post("name"); });
  EXPECT_TRUE(runUntil([&] { return count == 1; }));
  EXPECT_TRUE(isMain);
}

TEST_P(NotificationsContract, ARemovedObserverHearsNothingMore) {
  int count = 0;
  int stays = 0;
  const Notifications::Token token = notifications().addObserver("name", [&] { ++count; });
  notifications().addObserver("name", [&] { ++stays; });
  notifications().post("name");
  // On its way, and not to arrive.
  notifications().removeObserver(token);
  settle();
  notifications().post("name");
  settle();
  EXPECT_EQ(count, 0);
  EXPECT_EQ(stays, 2);
}

TEST_P(NotificationsContract, AnObserverMayRemoveItselfAndAnother) {
  int first = 0;
  int second = 0;
  Notifications::Token firstToken = 0;
  Notifications::Token secondToken = 0;
  firstToken = notifications().addObserver("name", [&] {
    ++first;
    notifications().removeObserver(firstToken);
    notifications().removeObserver(secondToken);
  });
  secondToken = notifications().addObserver("name", [&] { ++second; });
  notifications().post("name");
  notifications().post("name");
  settle();
  // Nothing is said of which of the two comes first.
  EXPECT_EQ(first, 1);
  EXPECT_LE(second, 1);
}

TEST_P(NotificationsContract, TokensAreNeverGivenTwice) {
  std::set<Notifications::Token> tokens{0};
  for (int count = 0; count < 100; ++count) {
    const Notifications::Token token = notifications().addObserver("name", [] {});
    EXPECT_TRUE(tokens.insert(token).second);
    if (count % 2 == 0) notifications().removeObserver(token);
  }
  notifications().removeObserver(0);
  notifications().removeObserver(1'000'000);
}

TEST_P(NotificationsContract, WhatABlockHoldsIsReleasedWithItsObserver) {
  const auto held = std::make_shared<int>(0);
  const Notifications::Token token = notifications().addObserver("name", [held] { ++*held; });
  EXPECT_EQ(held.use_count(), 2);
  notifications().removeObserver(token);
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace talmo::test
