#include <memory>

#include "tests/backend/dispatch/LinuxDispatchWorld.h"
#include "tests/contract/DispatchContract.h"

namespace talmo::test {

INSTANTIATE_TEST_SUITE_P(Linux, DispatchContract,
                         testing::Values([] { return std::make_unique<LinuxDispatchWorld>(); }),
                         [](const auto&) { return "RealTime"; });

}  // namespace talmo::test
