#include "tests/support/PrivateTray.h"

#include <stdexcept>

#include "platform/linux/x11/XConnection.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {

PrivateTray::PrivateTray(const PrivateDesktop& desktop)
    : process_(
          desktop.start({"trayer", "--edge", "top", "--align", "right", "--widthtype", "request",
                         "--height", "24", "--SetDockType", "true", "--SetPartialStrut", "true"})) {
  const std::unique_ptr<XConnection> connection = XConnection::open(desktop.displayName());
  const bool isThere = waitUntil(
      [&] { return connection && connection->selectionOwner("_NET_SYSTEM_TRAY_S0") != 0; },
      std::chrono::seconds(20));
  if (!isThere) throw std::runtime_error("the tray did not start: " + process_->output());
}

}  // namespace talmo::test
