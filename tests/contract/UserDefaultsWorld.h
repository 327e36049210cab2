#pragma once

#include "platform/UserDefaults.h"

namespace talmo::test {

/// Settings that were empty at first, and a way to see them as the next run of the program would.
class UserDefaultsWorld {
 public:
  virtual ~UserDefaultsWorld() = default;

  /// The settings of the current run; the reference is good until `reopen`.
  virtual UserDefaults& defaults() = 0;

  /// Ends the run and begins the next with what was stored.
  virtual void reopen() = 0;
};

}  // namespace talmo::test
