#pragma once

#include <map>
#include <memory>
#include <string>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProcess.h"

namespace talmo::test {

/// A session bus of the test's own.
class PrivateBus {
 public:
  /// Starts the bus and waits until it listens. Throws when it does not come up. The services that
  /// it activates get the test's environment with `environment` added.
  explicit PrivateBus(std::map<std::string, std::string> environment = {});

  /// The value for DBUS_SESSION_BUS_ADDRESS.
  const std::string& address() const { return address_; }

  TestProcess& daemon() { return *daemon_; }

 private:
  TemporaryFolder folder_;
  std::string address_;
  std::unique_ptr<TestProcess> daemon_;
};

}  // namespace talmo::test
