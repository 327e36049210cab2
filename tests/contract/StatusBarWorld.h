#pragma once

#include <string>

#include "platform/Application.h"
#include "platform/StatusBar.h"
#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// A desktop with a bar of status items and a person with a mouse, who has one item to click on.
class StatusBarWorld : public DispatchWorld {
 public:
  virtual StatusBar& statusBar() = 0;
  virtual Application& application() = 0;

  /// Presses and releases a button of the mouse on the item, which is shown by then or soon.
  virtual void leftClick() = 0;
  virtual void rightClick() = 0;

  /// Chooses from the menu that has dropped down, or closes it. Waits for the menu.
  virtual void chooseFromMenu(const std::string& title) = 0;
  virtual void dismissMenu() = 0;
};

}  // namespace talmo::test
