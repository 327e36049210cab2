#include <memory>

#include "platform/macos/interface/MacPanels.h"
#include "platform/macos/interface/TalmoPanel.h"
#include "tests/contract/PanelsContract.h"
#include "tests/macos/contract/MacInterfaceWorld.h"

namespace talmo::test {
namespace {

constexpr unsigned short escape = 53;

class MacPanelsWorld : public MacInterfaceWorld<PanelsWorld> {
 public:
  MacPanelsWorld() = default;
  ~MacPanelsWorld() override { [other_ orderOut:nil]; }
  MacPanelsWorld(const MacPanelsWorld&) = delete;
  MacPanelsWorld& operator=(const MacPanelsWorld&) = delete;

  Panels& panels() override { return panels_; }

  void pressEscape() override {
    awaitKeys();
    NSWindow* const window = NSApp.keyWindow;
    NSEvent* const event = [NSEvent keyEventWithType:NSEventTypeKeyDown location:NSMakePoint(0, 0)
                                       modifierFlags:0
                                           timestamp:0
                                        windowNumber:window.windowNumber
                                             context:nil
                                          characters:@"\x1B"
                         charactersIgnoringModifiers:@"\x1B"
                                           isARepeat:NO
                                             keyCode:escape];
    [window sendEvent:event];
  }

  /// A window of this process, too: to a panel it is the same.
  void takeKeysAway() override {
    awaitKeys();
    other_ = [[TalmoPanel alloc] init];
    [other_ makeKeyAndOrderFront:nil];
  }

 private:
  /// A panel that is seen may have to wait for the keys.
  void awaitKeys() {
    EXPECT_TRUE(runUntil([] { return NSApp.keyWindow != nil; }, std::chrono::seconds(20)));
  }

  MacPanels panels_;
  TalmoPanel* other_ = nil;
};

INSTANTIATE_TEST_SUITE_P(Mac, PanelsContract, testing::Values([] {
                           return std::make_unique<MacPanelsWorld>();
                         }), [](const auto&) { return "RealTime"; });

}  // namespace
}  // namespace talmo::test
