#include <memory>

#include "tests/contract/DispatchContract.h"
#include "tests/macos/contract/MacDispatchWorld.h"

namespace talmo::test {

INSTANTIATE_TEST_SUITE_P(Mac, DispatchContract, testing::Values([] {
                           return std::make_unique<MacDispatchWorld<DispatchWorld>>();
                         }), [](const auto&) { return "RealTime"; });

}  // namespace talmo::test
