#pragma once

#include <optional>
#include <span>

#include "platform/RunLoopSource.h"
#include "support/Time.h"

namespace talmo {

/// What a `LinuxRunLoop` serves. Its functions are called on the run loop's thread.
class LinuxRunLoopSource : public RunLoopSource {
 public:
  /// The file descriptors whose becoming readable means work. A source without any has ended, and
  /// the run loop lets go of it.
  virtual std::span<const int> descriptors() const = 0;

  /// When it has work even if nothing becomes readable.
  virtual std::optional<Uptime> deadline() const { return std::nullopt; }

  /// Does the work that there is, without waiting for more. Called before each wait of the run
  /// loop, so that work that arrived out of the descriptors' sight is not left lying.
  virtual void serve() = 0;
};

}  // namespace talmo
