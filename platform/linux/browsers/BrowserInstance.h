#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/linux/browsers/DebuggingAddress.h"
#include "platform/ProcessIdentifier.h"

namespace talmo {

/// A running browser.
struct BrowserInstance {
  ProcessIdentifier process = 0;
  /// Where its debugging socket should be; nothing for a browser that was not started with one.
  ///
  /// A browser can also be told in its settings to open the socket. Then it asks the person at each
  /// connection, in front of whatever they do, so that socket counts for none.
  std::optional<DebuggingAddress> socket;

  friend bool operator==(const BrowserInstance&, const BrowserInstance&) = default;
};

/// The running instances of the browser of that bundle identifier, oldest first; none for what is
/// no browser with a debugging socket. Any thread; reads /proc and the profiles.
std::vector<BrowserInstance> browserInstances(std::string_view bundleID);

}  // namespace talmo
