#include "platform/macos/interface/view/TLMFlippedStackView.h"

@implementation TLMFlippedStackView

- (BOOL)isFlipped {
  return YES;
}

@end
