#pragma once

#include "platform/ChildProcesses.h"
#include "platform/simulated/SimulatedChildScript.h"
#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// A machine with child processes and programs for them.
class ChildProcessWorld : public DispatchWorld {
 public:
  virtual ChildProcesses& childProcesses() = 0;

  /// What starts a program that does what `script` says. Its standard output is a pipe, its
  /// standard error the null device.
  virtual ChildProcessParameters program(const SimulatedChildScript& script) = 0;

  /// What starts a program that does not exist.
  virtual ChildProcessParameters missingProgram() = 0;
};

}  // namespace talmo::test
