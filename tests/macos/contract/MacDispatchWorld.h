#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include "platform/macos/dispatch/MacDispatch.h"
#include "platform/macos/Seconds.h"
#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// The real queues; the main one is served by the run loop of the thread that makes this.
template <class World>
class MacDispatchWorld : public World {
 public:
  Dispatch& dispatch() override { return dispatch_; }

  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    // What a condition reads changes on other threads too, without an event of the run loop's.
    constexpr Duration glance = std::chrono::milliseconds(2);
    const Uptime deadline = dispatch_.uptime() + limit;
    while (!condition()) {
      if (dispatch_.uptime() >= deadline) return false;
      @autoreleasepool {
        CFRunLoopRunInMode(kCFRunLoopDefaultMode, toSeconds(glance), true);
      }
    }
    return true;
  }

 private:
  MacDispatch dispatch_;
};

}  // namespace talmo::test
