#include "platform/macos/interface/LetGo.h"

#include <dispatch/dispatch.h>

namespace talmo {

void letGo(NSWindow* window) {
  window.delegate = nil;
  [window orderOut:nil];
  dispatch_async(dispatch_get_main_queue(), ^{
    // What is closed is in no list of windows any more.
    [window close];
  });
}

}  // namespace talmo
