#include "platform/macos/interface/MacStatusItem.h"

#include <utility>

#include "platform/macos/interface/Menus.h"
#include "platform/macos/Text.h"

/// What the button of a status item calls.
@interface TLMStatusItemTarget : NSObject

@property(nonatomic) std::function<void()> action;

- (void)handleClick:(id)sender;

@end

@implementation TLMStatusItemTarget

- (void)handleClick:(id)sender {
  // A copy, as the action may let go of the status item.
  const std::function<void()> action = self.action;
  if (action) action();
}

@end

namespace talmo {
namespace {

// As high as the symbols beside it, in points ("Menu bar extras", Human Interface Guidelines).
constexpr CGFloat imageSide = 18;

NSImage* pictureOf(const StatusImage& image) {
  NSString* const name = toNSString(image.name);
  NSString* const description = toNSString(image.accessibilityDescription);
  if (image.kind == StatusImage::Kind::symbol) {
    NSImage* const symbol = [NSImage imageWithSystemSymbolName:name
                                      accessibilityDescription:description];
    // A symbol is a template by itself.
    return symbol;
  }
  // The named one is shared by all who ask for it.
  NSImage* const asset = [[NSImage imageNamed:name] copy];
  asset.size = NSMakeSize(imageSide, imageSide);
  asset.accessibilityDescription = description;
  [asset setTemplate:image.isTemplate];
  return asset;
}

}  // namespace

MacStatusItem::MacStatusItem(NSStatusItem* item)
    : item_(item),
      target_([[TLMStatusItemTarget alloc] init]),
      button_(std::make_shared<MacStatusButton>(item.button)) {}

MacStatusItem::~MacStatusItem() {
  item_.button.target = nil;
  item_.menu = nil;
  [[NSStatusBar systemStatusBar] removeStatusItem:item_];
  button_->detach();
}

void MacStatusItem::setImage(const StatusImage& image) {
  item_.button.image = pictureOf(image);
}

void MacStatusItem::setAlpha(double alpha) {
  item_.button.alphaValue = alpha;
}

void MacStatusItem::setAction(std::uint64_t mask, std::function<void()> action) {
  target_.action = std::move(action);
  NSStatusBarButton* const button = item_.button;
  button.target = target_;
  button.action = @selector(handleClick:);
  [button sendActionOn:mask];
}

void MacStatusItem::setMenu(std::optional<Menu> menu) {
  item_.menu = menu ? makeMenu(*menu) : nil;
}

void MacStatusItem::performClick() {
  [item_.button performClick:nil];
}

}  // namespace talmo
