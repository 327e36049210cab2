#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/linux/osascript/BrowserModel.h"

namespace talmo::test {

/// A running browser and a hand that uses it.
class BrowserModelWorld {
 public:
  virtual ~BrowserModelWorld() = default;

  virtual BrowserModel& browser() = 0;

  /// Opens a window with a tab for each title, whose page has it and is at `address(title)`.
  virtual void openWindow(const std::vector<std::string>& titles) = 0;
  virtual std::string address(const std::string& title) const = 0;
  /// A window goes with its last tab.
  virtual void closeTab(const std::string& tab) = 0;
  /// Whether the tab is the one that its window shows.
  virtual bool isShown(const std::string& tab) = 0;

  /// Whether the condition comes true; a browser may take its time for what a hand does.
  virtual bool eventually(const std::function<bool()>& condition) = 0;
};

}  // namespace talmo::test
