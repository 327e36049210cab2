#pragma once

#include <memory>
#include <stdlib.h>
#include <string>

#include <gtest/gtest.h>

#include "tests/backend/applications/PrivateData.h"
#include "tests/support/PrivateBus.h"

namespace talmo::test {

/// A test with an empty machine and a session bus of its own, which is the one that the backend
/// finds.
class PlayersTest : public testing::Test {
 protected:
  PlayersTest() {
    PrivateData::clear();
    startBus();
  }
  ~PlayersTest() override { ::unsetenv("DISPLAY"); }

  PrivateBus& bus() { return *bus_; }

  /// Ends the bus and starts another one in another place.
  void startBus() {
    bus_.reset();
    bus_ = std::make_unique<PrivateBus>();
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus_->address().c_str(), 1);
  }

 private:
  std::unique_ptr<PrivateBus> bus_;
};

}  // namespace talmo::test
