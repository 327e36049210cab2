#pragma once

#include <memory>
#include <string>

#include "tests/support/TestProcess.h"

namespace talmo::test {

/// An X server of the test's own.
class PrivateDisplay {
 public:
  /// Starts the server and waits until it takes connections. Throws when it does not come up.
  PrivateDisplay();

  /// The value for DISPLAY.
  const std::string& name() const { return name_; }

  TestProcess& server() { return *server_; }

 private:
  std::unique_ptr<TestProcess> server_;
  std::string name_;
};

}  // namespace talmo::test
