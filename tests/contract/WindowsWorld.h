#pragma once

#include <string>

#include "platform/Windows.h"

namespace talmo::test {

/// The surroundings of `Windows` under test, and the person who sees at most one of them at a time.
class WindowsWorld {
 public:
  virtual ~WindowsWorld() = default;

  virtual Windows& windows() = 0;

  /// The person closes the window that is seen.
  virtual void personCloses() = 0;

  /// The person presses the button of that identity, which the window that is seen has, and whose
  /// text says the same.
  virtual void press(const std::string& button) = 0;
};

}  // namespace talmo::test
