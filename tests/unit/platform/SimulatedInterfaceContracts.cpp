// The simulated interface keeps the same contracts as the real one.

#include <memory>
#include <string>
#include <vector>

#include "tests/component/SimulatedWorld.h"
#include "tests/contract/EventMonitorsContract.h"
#include "tests/contract/PanelsContract.h"
#include "tests/contract/StatusBarContract.h"

namespace talmo::test {
namespace {

/// A simulated machine in the shape that a contract wants.
template <class ContractWorld>
class InterfaceWorld : public ContractWorld {
 public:
  Dispatch& dispatch() override { return world_.time(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return world_.time().runUntil(condition, limit);
  }

 protected:
  SimulatedPlatform& machine() { return world_.machine(); }

  /// Runs what is under way.
  void settle() { world_.time().runUntilIdle(); }

 private:
  SimulatedWorld world_;
};

class SimulatedStatusBarWorld : public InterfaceWorld<StatusBarWorld> {
 public:
  StatusBar& statusBar() override { return machine().statusBar(); }
  Application& application() override { return machine().application(); }
  void leftClick() override { item().leftClick(); }
  void rightClick() override { item().rightClick(); }
  void chooseFromMenu(const std::string& title) override {
    settle();
    EXPECT_TRUE(item().choose(title));
  }
  void dismissMenu() override {
    settle();
    EXPECT_TRUE(item().openMenu().has_value());
    item().dismissMenu();
  }

 private:
  SimulatedStatusItem& item() { return *machine().statusBar().items().at(0); }
};

class SimulatedPanelsWorld : public InterfaceWorld<PanelsWorld> {
 public:
  Panels& panels() override { return machine().panels(); }
  void pressEscape() override { EXPECT_TRUE(panel().press(53)); }
  void takeKeysAway() override { panel().resignKey(); }

 private:
  SimulatedPanel& panel() { return *machine().panels().panels().at(0); }
};

class SimulatedEventMonitorsWorld : public InterfaceWorld<EventMonitorsWorld> {
 public:
  EventMonitors& eventMonitors() override { return machine().eventMonitors(); }
  WindowIdentifier window() override { return window_; }
  void clickWindow() override {
    machine().eventMonitors().send({.type = InterfaceEvent::Type::leftMouseDown, .window = window_},
                                   [] {});
  }
  void clickElsewhere() override {
    machine().eventMonitors().sendElsewhere({.type = InterfaceEvent::Type::leftMouseDown});
  }
  void pressKey(std::uint16_t keyCode, std::uint64_t modifiers) override {
    machine().eventMonitors().send({.type = InterfaceEvent::Type::keyDown,
                                    .window = window_,
                                    .keyCode = keyCode,
                                    .modifiers = modifiers},
                                   [this, keyCode] { received_.push_back(keyCode); });
  }
  std::vector<std::uint16_t> receivedKeys() override { return received_; }

 private:
  const WindowIdentifier window_ = machine().application().makeWindow();
  std::vector<std::uint16_t> received_;
};

INSTANTIATE_TEST_SUITE_P(Simulated, EventMonitorsContract, testing::Values([] {
                           return std::make_unique<SimulatedEventMonitorsWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, PanelsContract,
                         testing::Values([] { return std::make_unique<SimulatedPanelsWorld>(); }));

INSTANTIATE_TEST_SUITE_P(Simulated, StatusBarContract, testing::Values([] {
                           return std::make_unique<SimulatedStatusBarWorld>();
                         }));

}  // namespace
}  // namespace talmo::test
