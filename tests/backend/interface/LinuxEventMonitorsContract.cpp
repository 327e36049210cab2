#include <map>
#include <memory>
#include <QKeyEvent>
#include <QWidget>
#include <string>
#include <vector>

#include "platform/linux/interface/VirtualKeys.h"
#include "tests/backend/interface/InterfaceDesk.h"
#include "tests/contract/EventMonitorsContract.h"

namespace talmo::test {
namespace {

/// A window that keeps the presses that it gets.
class KeyWindow : public QWidget {
 public:
  const std::vector<std::uint16_t>& received() const { return received_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    received_.push_back(virtualKeyCode(event->key()));
  }

 private:
  std::vector<std::uint16_t> received_;
};

class LinuxEventMonitorsWorld : public EventMonitorsWorld {
 public:
  LinuxEventMonitorsWorld() {
    window_.setFocusPolicy(Qt::StrongFocus);
    window_.setGeometry(950, 550, 300, 200);
    window_.show();
    window_.activateWindow();
    desk_.waitForKeys(window_.winId());
  }

  Dispatch& dispatch() override { return desk_.services().dispatch(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    LinuxDispatch& dispatch = desk_.services().dispatch();
    return dispatch.serveMainQueueUntil(condition, dispatch.uptime() + limit);
  }

  EventMonitors& eventMonitors() override { return desk_.services().eventMonitors(); }
  WindowIdentifier window() override { return window_.winId(); }
  void clickWindow() override {
    click(desk_.windows().area(static_cast<std::uint32_t>(window_.winId())).value());
  }
  void clickElsewhere() override { click(desk_.otherArea()); }
  void pressKey(std::uint16_t keyCode, std::uint64_t modifiers) override {
    static const std::map<std::uint16_t, std::string> keysyms{
        {36, "Return"}, {48, "Tab"}, {49, "space"}, {76, "KP_Enter"}, {125, "Down"}, {126, "Up"}};
    static const std::map<std::uint64_t, std::string> holders{
        {InterfaceEvent::shift, "Shift_L"},
        {InterfaceEvent::control, "Control_L"},
        {InterfaceEvent::option, "Alt_L"},
        {InterfaceEvent::command, "Super_L"}};
    desk_.waitForKeys(window_.winId());
    for (const auto& [bit, holder] : holders) {
      if ((modifiers & bit) != 0) desk_.keys().press(holder);
    }
    desk_.keys().tap(keysyms.at(keyCode));
    for (const auto& [bit, holder] : holders) {
      if ((modifiers & bit) != 0) desk_.keys().release(holder);
    }
  }
  std::vector<std::uint16_t> receivedKeys() override { return window_.received(); }

 private:
  void click(const PixelArea& area) { desk_.mouse().click(area.middleX(), area.middleY()); }

  InterfaceDesk desk_;
  KeyWindow window_;
};

INSTANTIATE_TEST_SUITE_P(Linux, EventMonitorsContract, testing::Values([] {
                           return std::make_unique<LinuxEventMonitorsWorld>();
                         }),
                         [](const auto&) { return "Input"; });

}  // namespace
}  // namespace talmo::test
