#include "platform/macos/interface/MacPanel.h"

#include <utility>

#include "platform/macos/interface/EventTranslation.h"
#include "platform/macos/interface/Geometry.h"
#include "platform/macos/interface/LetGo.h"
#include "platform/macos/interface/TalmoPanel.h"
#include "platform/macos/interface/view/Metrics.h"
#include "platform/macos/interface/view/Motion.h"
#include "platform/macos/interface/view/TLMHostingView.h"

/// Hears that a panel has lost the keys.
@interface TLMPanelDelegate : NSObject <NSWindowDelegate>

@property(nonatomic) std::function<void()> onResignKey;

@end

@implementation TLMPanelDelegate

- (void)windowDidResignKey:(NSNotification*)notification {
  // A copy, as the callback may let go of the panel.
  const std::function<void()> onResignKey = self.onResignKey;
  if (onResignKey) onResignKey();
}

@end

namespace talmo {

MacPanel::MacPanel()
    : panel_([[TalmoPanel alloc] init]),
      content_([[TLMHostingView alloc] initWithWidth:Metrics::width]),
      delegate_([[TLMPanelDelegate alloc] init]) {
  panel_.contentView = content_;
  panel_.delegate = delegate_;
}

MacPanel::~MacPanel() {
  panel_.onCancel = nil;
  content_.onSizeChange = nullptr;
  letGo(panel_);
}

WindowIdentifier MacPanel::window() const {
  return windowIdentifierOf(panel_.windowNumber);
}

void MacPanel::setContent(const View& content) {
  [content_ show:content];
}

Rect MacPanel::frame() const {
  return fromSystem(panel_.frame);
}

void MacPanel::setFrame(const Rect& frame, bool isAnimated) {
  if (frame == this->frame()) return;
  [panel_ setFrame:toSystem(frame) display:YES animate:isAnimated && !reducesMotion()];
}

void MacPanel::invalidateShadow() {
  [panel_ invalidateShadow];
}

bool MacPanel::isVisible() const {
  return panel_.visible;
}

void MacPanel::makeKeyAndOrderFront() {
  [panel_ makeKeyAndOrderFront:nil];
}

void MacPanel::orderOut() {
  [panel_ orderOut:nil];
}

void MacPanel::setOnSizeChange(std::function<void(Size)> callback) {
  content_.onSizeChange = std::move(callback);
}

void MacPanel::setOnCancel(std::function<void()> callback) {
  panel_.onCancel = ^{
    if (callback) callback();
  };
}

void MacPanel::setOnResignKey(std::function<void()> callback) {
  delegate_.onResignKey = std::move(callback);
}

}  // namespace talmo
