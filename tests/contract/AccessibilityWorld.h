#pragma once

#include <string>

#include "platform/Accessibility.h"

namespace talmo::test {

/// The surroundings of an `Accessibility` under test: what stands between the program and trust, at
/// first nothing, applications and their windows. What a function changes is changed when it
/// returns.
struct AccessibilityWorld {
  virtual ~AccessibilityWorld() = default;

  virtual Accessibility& accessibility() = 0;

  /// Gives the program trust or takes it away.
  virtual void setTrusted(bool trusted) = 0;

  /// Starts an application without windows.
  virtual ProcessIdentifier startApplication() = 0;

  /// Opens a further window of the application; an empty title is none.
  virtual void openWindow(ProcessIdentifier process, const std::string& title) = 0;

  /// Gives the application's first window another title.
  virtual void retitle(ProcessIdentifier process, const std::string& title) = 0;

  virtual void closeWindows(ProcessIdentifier process) = 0;
};

}  // namespace talmo::test
