#pragma once

#include <array>
#include <optional>
#include <signal.h>

#include "platform/linux/dispatch/LinuxDispatch.h"

namespace talmo {

/// Turns the first SIGTERM, SIGINT or SIGHUP into the end of the main loop; the next one ends the
/// process at once, as it would without this object. A signal that the process was started to
/// ignore (nohup, a shell's background job) stays ignored.
///
/// Handlers, not a blocked mask: programs that are started later get neither. Made and destroyed on
/// the main thread, one at a time.
class TerminationSignals {
 public:
  /// `dispatch` lives longer.
  explicit TerminationSignals(LinuxDispatch& dispatch);
  /// Puts back what was there before.
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

  /// The signal that ended the main loop.
  std::optional<int> received() const;

 private:
  static constexpr std::array<int, 3> signals{SIGTERM, SIGINT, SIGHUP};

  std::array<struct sigaction, 3> before_{};
};

}  // namespace talmo
