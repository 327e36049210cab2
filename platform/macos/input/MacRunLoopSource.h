#pragma once

#include <memory>

#include "platform/macos/CFOwned.h"
#include "platform/macos/input/MacEventTapPort.h"
#include "platform/RunLoopSource.h"

namespace talmo {

/// Serves an event tap, and keeps its port for as long.
class MacRunLoopSource : public RunLoopSource {
 public:
  explicit MacRunLoopSource(std::shared_ptr<MacEventTapPort> port);

  /// Null when the port had been invalidated before.
  CFRunLoopSourceRef source() const { return source_.get(); }

 private:
  const std::shared_ptr<MacEventTapPort> port_;
  const CFOwned<CFRunLoopSourceRef> source_;
};

}  // namespace talmo
