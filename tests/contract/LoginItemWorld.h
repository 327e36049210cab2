#pragma once

#include "platform/LoginItem.h"

namespace talmo::test {

/// The surroundings of a `LoginItem` under test, which is not registered at first.
class LoginItemWorld {
 public:
  virtual ~LoginItemWorld() = default;

  /// The login item of the current run; the reference is good until `reopen`.
  virtual LoginItem& item() = 0;

  /// Ends the run of the program and begins the next.
  virtual void reopen() = 0;

  /// Has the person switch the item, which is registered, off with a program of the system's.
  virtual void switchOff() = 0;

  /// Makes every change fail from now on, or succeed again.
  virtual void setFails(bool fails) = 0;
};

}  // namespace talmo::test
