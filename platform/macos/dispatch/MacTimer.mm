#include "platform/macos/dispatch/MacTimer.h"

#include <utility>

#include "platform/macos/Seconds.h"

namespace talmo {

MacTimer::MacTimer(std::function<void()> block)
    : block_(std::make_shared<const std::function<void()>>(std::move(block))) {}

void MacTimer::schedule(Duration interval, Duration tolerance) {
  kept_ = shared_from_this();
  const std::weak_ptr<const MacTimer> weak = kept_;
  timer_ = [NSTimer scheduledTimerWithTimeInterval:toSeconds(interval) repeats:YES
                                             block:^(NSTimer*) {
                                               @autoreleasepool {
                                                 if (const auto self = weak.lock()) self->fire();
                                               }
                                             }];
  timer_.tolerance = toSeconds(tolerance);
  // So far it is in the default mode only.
  [NSRunLoop.mainRunLoop addTimer:timer_ forMode:NSRunLoopCommonModes];
}

void MacTimer::invalidate() {
  // What goes here may hold the last reference to this.
  const std::shared_ptr<MacTimer> kept = std::move(kept_);
  [timer_ invalidate];
  timer_ = nil;
  const auto released = std::move(block_);
}

void MacTimer::fire() const {
  // Kept, as it may invalidate its timer.
  const auto block = block_;
  if (block) (*block)();
}

}  // namespace talmo
