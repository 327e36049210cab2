#include "platform/macos/interface/view/FirstMouseHostingView.h"

@implementation FirstMouseHostingView

- (BOOL)acceptsFirstMouse:(NSEvent*)event {
  return YES;
}

@end
