#pragma once

#include <memory>

#include "platform/EventTap.h"

namespace talmo {

/// Quartz event taps on Core Foundation's run loops. Taps do not exclude each other.
class MacEventTap : public EventTap {
 public:
  std::shared_ptr<EventTapPort> create(const EventTapParameters& parameters) override;
  std::shared_ptr<RunLoopSource> makeRunLoopSource(
      const std::shared_ptr<EventTapPort>& port) override;
  std::shared_ptr<RunLoop> currentRunLoop() override;
};

}  // namespace talmo
