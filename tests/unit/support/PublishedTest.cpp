#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Published.h"

namespace talmo {
namespace {

using testing::ElementsAre;

TEST(Published, ObserversAreToldBeforeTheValueChanges) {
  Published<int> value;
  std::vector<std::string> seen;
  value.observe([&](const int& next) {
    seen.push_back(std::to_string(value.get()) + " to " + std::to_string(next));
  });
  value.set(1);
  value.set(1);
  value.set(2);
  EXPECT_EQ(value.get(), 2);
  EXPECT_THAT(seen, ElementsAre("0 to 1", "1 to 1", "1 to 2"));
}

TEST(Published, ObserversAreToldInTheOrderInWhichTheyCame) {
  Published<int> value;
  std::vector<std::string> seen;
  value.observe([&](int) { seen.emplace_back("first"); });
  const auto second = value.observe([&](int) { seen.emplace_back("second"); });
  value.observe([&](int) { seen.emplace_back("third"); });
  value.set(1);
  value.stopObserving(second);
  value.set(2);
  EXPECT_THAT(seen, ElementsAre("first", "second", "third", "first", "third"));
}

TEST(Published, AnObserverMayEndItselfAndOthersAndBringNewOnes) {
  Published<int> value;
  std::vector<std::string> seen;
  Published<int>::Token first = 0;
  Published<int>::Token second = 0;
  first = value.observe([&](int) {
    seen.emplace_back("first");
    value.stopObserving(first);
    value.stopObserving(second);
    value.observe([&](int) { seen.emplace_back("new"); });
  });
  second = value.observe([&](int) { seen.emplace_back("second"); });
  value.set(1);
  value.set(2);
  EXPECT_THAT(seen, ElementsAre("first", "new"));
}

}  // namespace
}  // namespace talmo
