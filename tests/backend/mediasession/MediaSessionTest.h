#pragma once

#include <memory>
#include <stdlib.h>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/FakePlayer.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {

/// A test with a session bus and a runtime folder of its own, which are those that the backend
/// finds.
class MediaSessionTest : public testing::Test {
 protected:
  MediaSessionTest() {
    startBus();
    ::setenv("XDG_RUNTIME_DIR", runtimeFolder_.path().c_str(), 1);
  }

  ~MediaSessionTest() override {
    ::unsetenv("XDG_RUNTIME_DIR");
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
  }

  /// Ends the bus, if there is one, and starts another in another place.
  void startBus() {
    bus_.reset();
    bus_ = std::make_unique<PrivateBus>();
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus_->address().c_str(), 1);
  }

  void endBus() { bus_.reset(); }

  PrivateBus& bus() { return *bus_; }
  const TemporaryFolder& runtimeFolder() const { return runtimeFolder_; }

  static std::unique_ptr<FakePlayer> start(const std::string& name,
                                           const std::string& status = "Playing") {
    return std::make_unique<FakePlayer>(
        FakePlayer::Start{.name = name, .playbackStatus = status, .onCommand = {}});
  }

 private:
  std::unique_ptr<PrivateBus> bus_;
  const TemporaryFolder runtimeFolder_;
};

}  // namespace talmo::test
