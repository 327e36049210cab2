#include "tests/support/PrivateBus.h"

#include <stdexcept>
#include <stdlib.h>
#include <system_error>
#include <utility>

#include "tests/support/SocketServer.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {

PrivateBus::PrivateBus(std::map<std::string, std::string> environment) {
  std::string name = (std::filesystem::temp_directory_path() / "talmo-bus-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the session bus");
  folder_ = name;
  address_ = "unix:path=" + (folder_ / "bus").string();
  daemon_ = std::make_unique<TestProcess>(TestProcess::Start{
      .arguments = {"dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=" + address_},
      .environment = std::move(environment)});
  if (!waitUntil([this] { return takesConnections(folder_ / "bus"); })) {
    throw std::runtime_error("the session bus did not start: " + daemon_->output());
  }
}

PrivateBus::~PrivateBus() {
  daemon_.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

}  // namespace talmo::test
