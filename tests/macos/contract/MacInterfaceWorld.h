#pragma once

#import <AppKit/AppKit.h>

#include "tests/macos/contract/MacDispatchWorld.h"

namespace talmo::test {

/// Has this process be an application that may show windows, as one without a bundle is none.
inline void becomeApplication() {
  if (NSApp != nil) return;
  [NSApplication sharedApplication];
  [NSApp setActivationPolicy:NSApplicationActivationPolicyAccessory];
  [NSApp finishLaunching];
}

/// The one window of a class that is seen; nil for none.
inline NSWindow* seenWindow(Class kind) {
  for (NSWindow* window in NSApp.windows) {
    if (window.visible && [window isKindOfClass:kind]) return window;
  }
  return nil;
}

/// The interface of an application whose events are handled while something is waited for.
template <class World>
class MacInterfaceWorld : public MacDispatchWorld<World> {
 public:
  MacInterfaceWorld() { becomeApplication(); }

  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    const auto handlingEvents = [&condition] {
      handleEvents();
      return condition();
    };
    return MacDispatchWorld<World>::runUntil(handlingEvents, limit);
  }

 private:
  static void handleEvents() {
    @autoreleasepool {
      while (NSEvent* const event = [NSApp nextEventMatchingMask:NSEventMaskAny untilDate:nil
                                                          inMode:NSDefaultRunLoopMode
                                                         dequeue:YES]) {
        [NSApp sendEvent:event];
      }
    }
  }
};

}  // namespace talmo::test
