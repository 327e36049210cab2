#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "tests/support/TestProcess.h"

namespace talmo::test {

/// A sound server of the test's own, which plays into nothing.
class PrivateSound {
 public:
  /// Starts the server with its socket in `folder` and waits until it takes connections. Throws
  /// when it does not come up.
  PrivateSound(const std::filesystem::path& folder,
               const std::map<std::string, std::string>& environment);

  /// The value for PULSE_SERVER.
  const std::string& address() const { return address_; }

  TestProcess& process() { return server_; }

 private:
  std::string address_;
  TestProcess server_;
};

}  // namespace talmo::test
