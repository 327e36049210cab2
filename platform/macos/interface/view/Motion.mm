#include "platform/macos/interface/view/Motion.h"

#import <AppKit/AppKit.h>

namespace talmo {

bool reducesMotion() {
  return [NSWorkspace sharedWorkspace].accessibilityDisplayShouldReduceMotion;
}

CALayer* makeStillLayer() {
  CALayer* const layer = [CALayer layer];
  NSNull* const none = [NSNull null];
  layer.actions = @{
    @"backgroundColor" : none,
    @"borderColor" : none,
    @"bounds" : none,
    @"contents" : none,
    @"hidden" : none,
    @"position" : none,
  };
  return layer;
}

}  // namespace talmo
