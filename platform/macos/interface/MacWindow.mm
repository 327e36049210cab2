#include "platform/macos/interface/MacWindow.h"

#include <utility>

#include "platform/macos/interface/LetGo.h"
#include "platform/macos/interface/TLMWindow.h"
#include "platform/macos/interface/view/FirstMouseHostingView.h"
#include "platform/macos/interface/view/TLMHostingView.h"
#include "platform/macos/Text.h"

/// Hears that a window is about to be closed.
@interface TLMWindowDelegate : NSObject <NSWindowDelegate>

@property(nonatomic) std::function<void()> onWillClose;
/// It is being told so.
@property(nonatomic, readonly) BOOL isClosing;

@end

@implementation TLMWindowDelegate

- (void)windowWillClose:(NSNotification*)notification {
  if (_isClosing) return;
  // Both, as the callback may let go of the window.
  TLMWindowDelegate* const kept NS_VALID_UNTIL_END_OF_SCOPE = self;
  _isClosing = YES;
  const std::function<void()> onWillClose = self.onWillClose;
  if (onWillClose) onWillClose();
  kept->_isClosing = NO;
}

@end

namespace talmo {
namespace {

static_assert(WindowParameters::titled == NSWindowStyleMaskTitled);
static_assert(WindowParameters::closable == NSWindowStyleMaskClosable);
static_assert(WindowParameters::fullSizeContentView == NSWindowStyleMaskFullSizeContentView);

TLMWindow* makeWindow(const WindowParameters& parameters) {
  const Size size = parameters.contentSize;
  TLMWindow* const window =
      [[TLMWindow alloc] initWithContentRect:NSMakeRect(0, 0, size.width, size.height)
                                   styleMask:parameters.styleMask
                                     backing:NSBackingStoreBuffered
                                       defer:NO];
  // ARC owns it, also where it is not to come back.
  window.releasedWhenClosed = NO;
  window.title = toNSString(parameters.title);
  window.titlebarAppearsTransparent = parameters.isTitleBarTransparent;
  window.titleVisibility = parameters.isTitleHidden ? NSWindowTitleHidden : NSWindowTitleVisible;
  window.movableByWindowBackground = parameters.isMovableByBackground;
  window.opaque = parameters.isOpaque;
  if (parameters.hasClearBackground) window.backgroundColor = [NSColor clearColor];
  return window;
}

TLMHostingView* makeContent(const WindowParameters& parameters) {
  const CGFloat width = parameters.contentSize.width;
  return parameters.acceptsFirstMouse ? [[FirstMouseHostingView alloc] initWithWidth:width]
                                      : [[TLMHostingView alloc] initWithWidth:width];
}

}  // namespace

MacWindow::MacWindow(const WindowParameters& parameters)
    : window_(makeWindow(parameters)),
      content_(makeContent(parameters)),
      delegate_([[TLMWindowDelegate alloc] init]) {
  window_.contentView = content_;
  window_.delegate = delegate_;
}

MacWindow::~MacWindow() {
  delegate_.onWillClose = nullptr;
  letGo(window_);
}

void MacWindow::setContent(const View& content) {
  [content_ show:content];
}

void MacWindow::center() {
  [window_ center];
}

bool MacWindow::isVisible() const {
  return window_.visible;
}

void MacWindow::makeKeyAndOrderFront() {
  [window_ makeKeyAndOrderFront:nil];
}

void MacWindow::close() {
  if (!window_.visible || delegate_.isClosing) return;
  // Both may be let go of by the callback.
  NSWindow* const window = window_;
  [window close];
}

void MacWindow::setOnWillClose(std::function<void()> callback) {
  delegate_.onWillClose = std::move(callback);
}

}  // namespace talmo
