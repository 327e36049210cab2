// The simulated services keep the same contracts as the real ones.

#include <memory>

#include "platform/simulated/SimulatedDispatch.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "tests/contract/DispatchContract.h"
#include "tests/contract/UserDefaultsContract.h"

namespace talmo::test {
namespace {

class SimulatedDispatchWorld : public DispatchWorld {
 public:
  explicit SimulatedDispatchWorld(std::uint64_t seed) : dispatch_(seed) {}

  Dispatch& dispatch() override { return dispatch_; }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return dispatch_.runUntil(condition, limit);
  }

 private:
  SimulatedDispatch dispatch_;
};

class SimulatedUserDefaultsWorld : public UserDefaultsWorld {
 public:
  UserDefaults& defaults() override { return *defaults_; }
  void reopen() override { defaults_ = std::make_unique<SimulatedUserDefaults>(store_); }

 private:
  const std::shared_ptr<SimulatedUserDefaults::Store> store_ =
      std::make_shared<SimulatedUserDefaults::Store>();
  std::unique_ptr<SimulatedUserDefaults> defaults_ =
      std::make_unique<SimulatedUserDefaults>(store_);
};

INSTANTIATE_TEST_SUITE_P(
    Simulated, DispatchContract,
    testing::Values([] { return std::make_unique<SimulatedDispatchWorld>(0); },
                    [] { return std::make_unique<SimulatedDispatchWorld>(1); },
                    [] { return std::make_unique<SimulatedDispatchWorld>(2); },
                    [] { return std::make_unique<SimulatedDispatchWorld>(3); }));

INSTANTIATE_TEST_SUITE_P(Simulated, UserDefaultsContract, testing::Values([] {
                           return std::make_unique<SimulatedUserDefaultsWorld>();
                         }));

}  // namespace
}  // namespace talmo::test
