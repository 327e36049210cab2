#include <memory>
#include <string>

#include "tests/backend/interface/InterfaceDesk.h"
#include "tests/contract/StatusBarContract.h"

namespace talmo::test {
namespace {

class LinuxStatusBarWorld : public StatusBarWorld {
 public:
  Dispatch& dispatch() override { return desk_.services().dispatch(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    LinuxDispatch& dispatch = desk_.services().dispatch();
    return dispatch.serveMainQueueUntil(condition, dispatch.uptime() + limit);
  }

  StatusBar& statusBar() override { return desk_.services().statusBar(); }
  Application& application() override { return desk_.services().application(); }
  void leftClick() override { click(MousePresser::left); }
  void rightClick() override { click(MousePresser::right); }
  void chooseFromMenu(const std::string& title) override { desk_.chooseFromMenu(title); }
  void dismissMenu() override { desk_.dismissMenu(); }

 private:
  void click(std::uint8_t button) {
    const PixelArea icon = desk_.icon();
    desk_.mouse().click(icon.middleX(), icon.middleY(), button);
  }

  InterfaceDesk desk_;
};

INSTANTIATE_TEST_SUITE_P(Linux, StatusBarContract,
                         testing::Values([] { return std::make_unique<LinuxStatusBarWorld>(); }),
                         [](const auto&) { return "Tray"; });

}  // namespace
}  // namespace talmo::test
