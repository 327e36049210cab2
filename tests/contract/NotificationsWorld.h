#pragma once

#include <functional>

#include "platform/Dispatch.h"
#include "platform/Notifications.h"

namespace talmo::test {

/// A notification centre without observers and the main loop that it needs. The thread that makes
/// it is the main thread; all functions belong to it.
struct NotificationsWorld {
  virtual ~NotificationsWorld() = default;

  virtual Dispatch& dispatch() = 0;
  virtual Notifications& notifications() = 0;

  /// Serves the main queue until `condition`, which reads atomics only, holds or `limit` is over;
  /// returns whether it held.
  virtual bool runUntil(const std::function<bool()>& condition, Duration limit) = 0;
};

}  // namespace talmo::test
