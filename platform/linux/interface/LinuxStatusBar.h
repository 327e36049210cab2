#pragma once

#include <memory>

#include "platform/linux/interface/LinuxOwnApplication.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/StatusBar.h"

namespace talmo {

/// The desktop's tray, where every item is as wide as the tray says.
class LinuxStatusBar : public StatusBar {
 public:
  /// Both live longer.
  LinuxStatusBar(const Vectors& vectors, LinuxOwnApplication& application)
      : vectors_(vectors), application_(application) {}

  std::unique_ptr<StatusItem> makeStatusItem(double length) override;

 private:
  const Vectors& vectors_;
  LinuxOwnApplication& application_;
};

}  // namespace talmo
