#pragma once

#include <memory>

#include "tests/support/PrivateDesktop.h"
#include "tests/support/TestProcess.h"

namespace talmo::test {

/// A tray at the upper right of a private desktop, in a bar that windows leave free.
class PrivateTray {
 public:
  /// Starts it and waits until it takes icons in. Throws when it does not come up.
  explicit PrivateTray(const PrivateDesktop& desktop);

 private:
  std::unique_ptr<TestProcess> process_;
};

}  // namespace talmo::test
