#include <memory>
#include <QApplication>
#include <QWidget>

#include "tests/backend/interface/InterfaceDesk.h"
#include "tests/contract/PanelsContract.h"

namespace talmo::test {
namespace {

class LinuxPanelsWorld : public PanelsWorld {
 public:
  Dispatch& dispatch() override { return desk_.services().dispatch(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    LinuxDispatch& dispatch = desk_.services().dispatch();
    return dispatch.serveMainQueueUntil(condition, dispatch.uptime() + limit);
  }

  Panels& panels() override { return desk_.services().panels(); }
  void pressEscape() override {
    waitForPanel();
    desk_.keys().tap("Escape");
  }
  void takeKeysAway() override {
    waitForPanel();
    desk_.other().focus();
  }

 private:
  void waitForPanel() {
    ASSERT_TRUE(desk_.runUntil([] { return QApplication::activeWindow() != nullptr; }));
    desk_.waitForKeys(QApplication::activeWindow()->winId());
  }

  InterfaceDesk desk_;
};

INSTANTIATE_TEST_SUITE_P(Linux, PanelsContract,
                         testing::Values([] { return std::make_unique<LinuxPanelsWorld>(); }),
                         [](const auto&) { return "Windows"; });

}  // namespace
}  // namespace talmo::test
