#pragma once

#include <memory>

#include "panel/StatusItemController.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

class StatusItemControllerTest : public ComponentTest {
 protected:
  StatusItemControllerTest() {
    controller_->setOnLeftClick([this] { ++leftClicks_; });
  }

  StatusItemController& controller() { return *controller_; }
  void drop() { controller_.reset(); }
  SimulatedStatusItem& item() { return *machine().statusBar().items().at(0); }
  int leftClicks() const { return leftClicks_; }

 private:
  int leftClicks_ = 0;
  std::shared_ptr<StatusItemController> controller_ = StatusItemController::make();
};

}  // namespace talmo::test
