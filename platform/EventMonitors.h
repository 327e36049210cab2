#pragma once

#include <cstdint>
#include <functional>

#include "platform/InterfaceEvent.h"

namespace talmo {

/// Sees the person's clicks and keys while the interface needs to know of them. Main thread only.
/// A monitor that the system refuses never calls; no failure is reported.
class EventMonitors {
 public:
  /// Stands for one monitor; never 0, never given twice.
  using Token = std::uint64_t;

  virtual ~EventMonitors() = default;

  /// From now on events of `mask` that go to other applications call `handler`, which cannot
  /// change them.
  virtual Token addGlobalMonitor(std::uint64_t mask,
                                 std::function<void(const InterfaceEvent&)> handler) = 0;

  /// From now on events of `mask` that go to this application call `handler` before anything else
  /// sees them; one for which it answers false is seen by nothing else.
  virtual Token addLocalMonitor(std::uint64_t mask,
                                std::function<bool(const InterfaceEvent&)> handler) = 0;

  /// Ends a monitor, which may be the one that is being called.
  virtual void removeMonitor(Token token) = 0;
};

}  // namespace talmo
