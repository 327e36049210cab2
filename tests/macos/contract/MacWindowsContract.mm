#include <memory>

#include "platform/macos/interface/MacWindows.h"
#include "platform/macos/interface/TLMWindow.h"
#include "platform/macos/interface/view/TLMButtonPart.h"
#include "platform/macos/Text.h"
#include "tests/contract/WindowsContract.h"
#include "tests/macos/contract/MacInterfaceWorld.h"

namespace talmo::test {
namespace {

NSView* buttonIn(NSView* view, NSString* label) {
  if ([view isKindOfClass:[TLMButtonPart class]] &&
      [view.accessibilityLabel isEqualToString:label]) {
    return view;
  }
  for (NSView* subview in view.subviews) {
    NSView* const button = buttonIn(subview, label);
    if (button != nil) return button;
  }
  return nil;
}

class MacWindowsWorld : public WindowsWorld {
 public:
  MacWindowsWorld() { becomeApplication(); }

  Windows& windows() override { return windows_; }

  void personCloses() override { [seenWindow([TLMWindow class]) performClose:nil]; }

  void press(const std::string& button) override {
    NSWindow* const window = seenWindow([TLMWindow class]);
    NSView* const pressed = buttonIn(window.contentView, toNSString(button));
    ASSERT_NE(pressed, nil) << button;
    const NSRect bounds = pressed.bounds;
    const NSPoint middle =
        [pressed convertPoint:NSMakePoint(bounds.size.width / 2, bounds.size.height / 2)
                       toView:nil];
    send(NSEventTypeLeftMouseDown, middle, window);
    send(NSEventTypeLeftMouseUp, middle, window);
  }

 private:
  static void send(NSEventType type, NSPoint place, NSWindow* window) {
    NSEvent* const event = [NSEvent mouseEventWithType:type location:place modifierFlags:0
                                             timestamp:0
                                          windowNumber:window.windowNumber
                                               context:nil
                                           eventNumber:0
                                            clickCount:1
                                              pressure:1];
    [window sendEvent:event];
  }

  MacWindows windows_;
};

INSTANTIATE_TEST_SUITE_P(Mac, WindowsContract, testing::Values([] {
                           return std::make_unique<MacWindowsWorld>();
                         }), [](const auto&) { return "RealTime"; });

}  // namespace
}  // namespace talmo::test
