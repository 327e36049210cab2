// Runs the component tests in virtual time, each with several seeds.

#include "tests/component/AccessibilityPermissionTest.h"
#include "tests/component/AdapterNowPlayingTest.h"
#include "tests/component/AppCoordinatorTest.h"
#include "tests/component/AudioActivityTest.h"
#include "tests/component/AutomationPermissionTest.h"
#include "tests/component/AutoRoutingTest.h"
#include "tests/component/FirstRunTest.h"
#include "tests/component/MediaKeyTapTest.h"
#include "tests/component/NowPlayingTest.h"
#include "tests/component/OnboardingModelTest.h"
#include "tests/component/PanelTest.h"
#include "tests/component/PanelWiringTest.h"
#include "tests/component/PlayerDetectionTest.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/component/StatusItemControllerTest.h"
#include "tests/component/SystemNowPlayingTest.h"
#include "tests/component/WebPlayerControllerTest.h"
#include "tests/component/WebTabDetectionTest.h"
#include "tests/component/WebTabScannerTest.h"

namespace talmo::test {
namespace {

template <std::uint64_t seed>
std::unique_ptr<World> make() {
  return std::make_unique<SimulatedWorld>(seed);
}

const auto worlds =
    testing::Values(&make<0>, &make<1>, &make<2>, &make<3>, &make<4>, &make<5>, &make<6>, &make<7>);

INSTANTIATE_TEST_SUITE_P(Simulated, AccessibilityPermissionTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, AdapterNowPlayingTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, AppCoordinatorTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, AudioActivityTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, AutoRoutingTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, AutomationPermissionTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, FirstRunTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, MediaKeyTapTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, NowPlayingTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, OnboardingModelTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, PlayerDetectionTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, PanelControllerTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, PanelKeysTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, PanelOffersTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, PanelWiringTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, StatusItemControllerTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, SystemNowPlayingTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, WebPlayerControllerTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, WebTabDetectionTest, worlds);
INSTANTIATE_TEST_SUITE_P(Simulated, WebTabScannerTest, worlds);

}  // namespace
}  // namespace talmo::test
