#pragma once

#include <memory>

#include "platform/Bundle.h"
#include "platform/linux/interface/LinuxProgram.h"
#include "platform/StatusBar.h"

namespace talmo {

/// The desktop's tray, where every item is as wide as the tray says.
class LinuxStatusBar : public StatusBar {
 public:
  /// Both live longer.
  LinuxStatusBar(const Bundle& bundle, LinuxProgram& program)
      : bundle_(bundle), program_(program) {}

  std::unique_ptr<StatusItem> makeStatusItem(double length) override;

 private:
  const Bundle& bundle_;
  LinuxProgram& program_;
};

}  // namespace talmo
