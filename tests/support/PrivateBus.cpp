#include "tests/support/PrivateBus.h"

#include <stdexcept>
#include <utility>

#include "tests/support/SocketServer.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {

PrivateBus::PrivateBus(std::map<std::string, std::string> environment) {
  address_ = "unix:path=" + (folder_.path() / "bus").string();
  daemon_ = std::make_unique<TestProcess>(TestProcess::Start{
      .arguments = {"dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=" + address_},
      .environment = std::move(environment)});
  if (!waitUntil([this] { return takesConnections(folder_.path() / "bus"); })) {
    throw std::runtime_error("the session bus did not start: " + daemon_->output());
  }
}

}  // namespace talmo::test
