#pragma once

#include <vector>

#include "platform/KeyEvents.h"
#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// A machine with applications that take key events.
class KeyEventsWorld : public DispatchWorld {
 public:
  virtual KeyEvents& keyEvents() = 0;

  /// Starts an application with a window and returns its process.
  virtual ProcessIdentifier startApplication() = 0;

  /// Starts a process that takes no key events.
  virtual ProcessIdentifier startProcessWithoutWindows() = 0;

  /// Brings the application of that process forward.
  virtual void bringForward(ProcessIdentifier process) = 0;

  /// The key events that arrived at a process, in order. Of the flags those of Shift and Control
  /// are told. May be called in conditions of `runUntil`.
  virtual std::vector<KeyboardEvent> received(ProcessIdentifier process) = 0;
};

}  // namespace talmo::test
