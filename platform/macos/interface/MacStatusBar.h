#pragma once

#include <memory>

#include "platform/StatusBar.h"

namespace talmo {

/// The menu bar's part for status items.
class MacStatusBar : public StatusBar {
 public:
  std::unique_ptr<StatusItem> makeStatusItem(double length) override;
};

}  // namespace talmo
