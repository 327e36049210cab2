#include "platform/macos/interface/Menus.h"

#include <functional>
#include <utility>

#include "platform/macos/Text.h"

/// What the items of one menu call, and its delegate. Neither keeps it: the items do, as what they
/// stand for.
@interface TLMMenuTarget : NSObject <NSMenuDelegate>

- (instancetype)initWithMenu:(const talmo::Menu&)menu;
/// Does what the item of that tag is for.
- (void)choose:(NSMenuItem*)item;

@end

@implementation TLMMenuTarget {
  talmo::Menu _menu;
  BOOL _isOpen;
}

- (instancetype)initWithMenu:(const talmo::Menu&)menu {
  self = [super init];
  if (self != nil) _menu = menu;
  return self;
}

- (void)choose:(NSMenuItem*)item {
  const std::function<void()> action = _menu.items.at(static_cast<std::size_t>(item.tag)).action;
  // Whether a menu has told that it is closed before it sends its action is not documented.
  [self close];
  if (action) action();
}

- (void)close {
  if (!std::exchange(_isOpen, NO)) return;
  // A copy, as the callback may let go of the menu.
  const std::function<void()> didClose = _menu.didClose;
  if (didClose) didClose();
}

- (void)menuWillOpen:(NSMenu*)menu {
  _isOpen = YES;
}

- (void)menuDidClose:(NSMenu*)menu {
  [self close];
}

@end

namespace talmo {

NSMenu* makeMenu(const Menu& menu) {
  TLMMenuTarget* const target = [[TLMMenuTarget alloc] initWithMenu:menu];
  NSMenu* const made = [[NSMenu alloc] initWithTitle:@""];
  NSInteger tag = 0;
  for (const MenuItem& item : menu.items) {
    NSMenuItem* const line =
        item.isSeparator() ? [NSMenuItem separatorItem]
                           : [[NSMenuItem alloc] initWithTitle:toNSString(item.title)
                                                        action:@selector(choose:)
                                                 keyEquivalent:toNSString(item.keyEquivalent)];
    if (!item.isSeparator()) line.target = target;
    line.representedObject = target;
    line.state = item.isChecked ? NSControlStateValueOn : NSControlStateValueOff;
    line.tag = tag;
    [made addItem:line];
    ++tag;
  }
  made.delegate = target;
  return made;
}

}  // namespace talmo
