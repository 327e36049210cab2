#pragma once

#include <memory>

#include "platform/Bundle.h"
#include "platform/linux/interface/LinuxOwnApplication.h"
#include "platform/StatusBar.h"

namespace talmo {

/// The desktop's tray, where every item is as wide as the tray says.
class LinuxStatusBar : public StatusBar {
 public:
  /// Both live longer.
  LinuxStatusBar(const Bundle& bundle, LinuxOwnApplication& application)
      : bundle_(bundle), application_(application) {}

  std::unique_ptr<StatusItem> makeStatusItem(double length) override;

 private:
  const Bundle& bundle_;
  LinuxOwnApplication& application_;
};

}  // namespace talmo
