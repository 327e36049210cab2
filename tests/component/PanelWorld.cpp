// The surroundings of the tests of the panel.

#include <algorithm>
#include <utility>

#include "platform/StatusBar.h"
#include "tests/component/PanelTest.h"

namespace talmo::test {

PanelTest::PanelTest()
    : statusItem_(machine().statusBar().makeStatusItem(StatusBar::variableLength)),
      controller_(PanelController::make()) {
  browsers().setStream(Script().liveOn());
  controller_->setOnSelectTarget(
      [this](const Selection& selection) { selections_.push_back(selection); });
  statusItem_->setAction(eventMask(InterfaceEvent::Type::leftMouseDown),
                         [this] { controller_->toggle(statusItem_->button()); });
}

PanelTest::~PanelTest() = default;

void PanelTest::openWith(const std::vector<std::string>& bundleIDs) {
  for (const std::string& bundleID : bundleIDs) {
    machine().applications().install({bundleID, bundleID});
  }
  open();
  ASSERT_TRUE(runUntil([&] { return model().detectedPlayers.get().size() == bundleIDs.size(); }));
  render();
}

void PanelTest::open() {
  item().leftClick();
  ASSERT_TRUE(controller().isVisible());
}

bool PanelTest::shows(const std::vector<std::string>& path) {
  return runUntil([this, path] { return part(panel().content(), path) != nullptr; });
}

bool PanelTest::hides(const std::vector<std::string>& path) {
  return runUntil([this, path] { return part(panel().content(), path) == nullptr; });
}

bool PanelTest::lists(const std::vector<std::string>& ids) {
  return runUntil([this, ids] {
    std::vector<std::string> rows;
    for (const View& child : part(panel().content(), {"players"})->children) {
      if (child.role == ViewRole::row) rows.push_back(child.identity);
    }
    return rows == ids;
  });
}

void PanelTest::click(const std::vector<std::string>& path) {
  const View* const button = part(panel().content(), path);
  ASSERT_NE(button, nullptr);
  EXPECT_TRUE(panel().click(*button));
}

void PanelTest::render() {
  ASSERT_TRUE(world().runMainQueue());
}

bool PanelTest::clickWindow(WindowIdentifier window, InterfaceEvent::Type type) {
  return machine().eventMonitors().send({.type = type, .window = window}, [] {});
}

void PanelTest::clickElsewhere(InterfaceEvent::Type type) {
  machine().eventMonitors().sendElsewhere({.type = type});
}

void PanelTest::setConsent(const std::string& bundleID, std::int32_t status) {
  machine().appleEvents().setConsent(bundleID, status);
}

int PanelTest::queries(const std::string& bundleID) {
  return static_cast<int>(std::ranges::count(
      machine().appleEvents().queries(),
      SimulatedAppleEvents::Query{.bundleID = bundleID, .askUserIfNeeded = false}));
}

void PanelTest::pass(Duration time) {
  auto isOver = std::make_shared<bool>(false);
  machine().dispatch().mainQueue().asyncAfter(time, [isOver] { *isOver = true; });
  ASSERT_TRUE(runUntil([isOver] { return *isOver; }));
}

}  // namespace talmo::test
