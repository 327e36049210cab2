#include "platform/macos/interface/MacApplication.h"

#import <AppKit/AppKit.h>

#include "platform/macos/interface/Events.h"
#include "platform/macos/Text.h"

namespace talmo {

static_assert(Application::alignmentFeedback == NSHapticFeedbackPatternAlignment);

void MacApplication::activate() {
  [NSApp activate];
}

void MacApplication::terminate() {
  // The system's function does not return; the caller's stack is to be gone by then.
  [NSRunLoop.mainRunLoop performInModes:@[ NSRunLoopCommonModes ] block:^{
    [NSApp terminate:nil];
  }];
}

void MacApplication::orderFrontStandardAboutPanel() {
  [NSApp orderFrontStandardAboutPanel:nil];
}

std::optional<InterfaceEvent> MacApplication::currentEvent() const {
  return interfaceEvent(NSApp.currentEvent);
}

void MacApplication::performHapticFeedback(int pattern) {
  [NSHapticFeedbackManager.defaultPerformer
      performFeedbackPattern:static_cast<NSHapticFeedbackPattern>(pattern)
             performanceTime:NSHapticFeedbackPerformanceTimeDefault];
}

std::optional<std::string> MacApplication::environmentVariable(const std::string& name) const {
  @autoreleasepool {
    return toOptionalText(NSProcessInfo.processInfo.environment[toNSString(name)]);
  }
}

}  // namespace talmo
