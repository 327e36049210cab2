#pragma once

#include <memory>
#include <optional>

#include "platform/linux/interface/view/Appearance.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/Panels.h"

namespace talmo {

/// Panels as windows of the toolkit, without which none can be made.
class LinuxPanels : public Panels {
 public:
  /// `vectors` lives longer.
  explicit LinuxPanels(const Vectors& vectors) : vectors_(vectors) {}

  std::unique_ptr<Panel> makePanel() override;

 private:
  const Vectors& vectors_;
  // From the first panel on.
  std::optional<Appearance> appearance_;
};

}  // namespace talmo
