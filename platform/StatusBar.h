#pragma once

#include <memory>

#include "platform/StatusItem.h"

namespace talmo {

/// The bar of status items. Main thread only.
class StatusBar {
 public:
  /// The length of an item that is as wide as its content (`NSVariableStatusItemLength`).
  static constexpr double variableLength = -1;

  virtual ~StatusBar() = default;

  /// A new item; where the system has no such bar it is shown nowhere, or when one comes.
  virtual std::unique_ptr<StatusItem> makeStatusItem(double length) = 0;
};

}  // namespace talmo
