#include "platform/macos/interface/TLMWindow.h"

#include "platform/macos/interface/view/TLMHostingView.h"

namespace {

// Virtual key codes (HIToolbox's Events.h).
constexpr unsigned short returnKey = 36;
constexpr unsigned short keypadEnter = 76;

}  // namespace

@implementation TLMWindow

- (void)keyDown:(NSEvent*)event {
  const bool isReturn = event.keyCode == returnKey || event.keyCode == keypadEnter;
  // Nothing in the content takes the keys before the window does.
  if (isReturn && !event.isARepeat && [self.contentView isKindOfClass:[TLMHostingView class]]) {
    if ([static_cast<TLMHostingView*>(self.contentView) pressPrimaryButton]) return;
  }
  [super keyDown:event];
}

@end
