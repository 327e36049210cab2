#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "app/AppCoordinator.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/support/AllocationCounter.h"

namespace talmo::test {
namespace {

class AuxiliaryKey : public TapEvent {
 public:
  explicit AuxiliaryKey(std::int64_t data1) : data1_(data1) {}
  std::uint32_t type() const override { return 14; }
  std::optional<SystemDefinedEvent> systemDefined() const override {
    return SystemDefinedEvent{.subtype = 8, .data1 = data1_};
  }

 private:
  const std::int64_t data1_;
};

TEST(PassThrough, TheCounterCounts) {
  const std::size_t before = allocations();
  const auto value = std::make_unique<std::string>(100, 'x');
  EXPECT_EQ(allocations() - before, 2U);
}

TEST(PassThrough, AKeyThatPassesCostsNoAllocation) {
  SimulatedWorld world;
  world.machine().userDefaults().setString("selectedTargetAppID", "gone");
  world.machine().userDefaults().setBoolean("hasCompletedOnboarding", true);
  const auto coordinator = AppCoordinator::make();
  coordinator->start();
  AuxiliaryKey press(0x00100A00);
  AuxiliaryKey volume(0x00000A00);

  const std::size_t before = allocations();
  EXPECT_EQ(coordinator->tap().handle(press), TapVerdict::pass);
  EXPECT_EQ(coordinator->tap().handle(volume), TapVerdict::pass);
  EXPECT_EQ(allocations(), before);
}

TEST(PassThrough, ReleasesAndRepeatsOfARoutedKeyCostNoAllocation) {
  SimulatedWorld world;
  world.machine().userDefaults().setBoolean("hasCompletedOnboarding", true);
  const auto coordinator = AppCoordinator::make();
  coordinator->start();
  AuxiliaryKey repeat(0x00100A01);
  AuxiliaryKey release(0x00100B00);

  const std::size_t before = allocations();
  EXPECT_EQ(coordinator->tap().handle(repeat), TapVerdict::consume);
  EXPECT_EQ(coordinator->tap().handle(release), TapVerdict::consume);
  EXPECT_EQ(allocations(), before);
}

}  // namespace
}  // namespace talmo::test
