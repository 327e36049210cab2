#import <AppKit/AppKit.h>

#include "platform/macos/AppDelegate.h"
#include "platform/macos/MacPlatform.h"
#include "platform/Platform.h"

namespace {

// The application keeps no reference to its delegate.
AppDelegate* delegate = nil;

}  // namespace

int main(int argc, const char** argv) {
  // First: windows and status items need its connection to the window server.
  NSApplication* const application = NSApplication.sharedApplication;
  // The application ends with exit, which leaves this where it is: nothing that still runs on a
  // queue or a thread loses its services.
  talmo::MacPlatform platform;
  talmo::setPlatform(&platform);
  @autoreleasepool {
    delegate = [[AppDelegate alloc] init];
    application.delegate = delegate;
  }
  return NSApplicationMain(argc, argv);
}
