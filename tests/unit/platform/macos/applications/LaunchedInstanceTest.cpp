#include <chrono>
#include <optional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/macos/applications/LaunchedInstance.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Processes = std::vector<ProcessIdentifier>;

constexpr Date monday(1'700'000'000s);

LaunchedInstance instance(ProcessIdentifier process, std::optional<Date> launched) {
  return {.application = {.bundleID = "a.b", .localizedName = "A", .processIdentifier = process},
          .launched = launched};
}

Processes order(std::vector<LaunchedInstance> instances) {
  Processes processes;
  for (const RunningApplication& application : oldestFirst(std::move(instances))) {
    processes.push_back(application.processIdentifier);
  }
  return processes;
}

TEST(LaunchedInstances, AreGivenByTheTimeOfTheirLaunch) {
  EXPECT_EQ(order({instance(1, monday + 2h), instance(2, monday), instance(3, monday + 1h)}),
            (Processes{2, 3, 1}));
}

TEST(LaunchedInstances, OfTheSessionItselfAreTheOldest) {
  EXPECT_EQ(order({instance(5, monday), instance(9, std::nullopt), instance(7, std::nullopt)}),
            (Processes{7, 9, 5}));
}

TEST(LaunchedInstances, OfOneMomentGoByTheirProcesses) {
  EXPECT_EQ(order({instance(8, monday), instance(4, monday)}), (Processes{4, 8}));
}

TEST(LaunchedInstances, KeepWhatIsKnownOfThem) {
  EXPECT_EQ(oldestFirst({instance(3, monday)}),
            (std::vector<RunningApplication>{
                {.bundleID = "a.b", .localizedName = "A", .processIdentifier = 3}}));
  EXPECT_EQ(order({}), Processes{});
}

}  // namespace
}  // namespace talmo::test
