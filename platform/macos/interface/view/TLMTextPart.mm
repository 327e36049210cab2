#include "platform/macos/interface/view/TLMTextPart.h"

#include "platform/macos/interface/view/Palette.h"
#include "platform/macos/interface/view/TextLook.h"
#include "platform/macos/Text.h"

using talmo::TextLook;

namespace {

NSFontWeight weightOf(TextLook::Weight weight) {
  switch (weight) {
    case TextLook::Weight::regular:
      return NSFontWeightRegular;
    case TextLook::Weight::medium:
      return NSFontWeightMedium;
    case TextLook::Weight::semibold:
      return NSFontWeightSemibold;
    case TextLook::Weight::bold:
      return NSFontWeightBold;
  }
}

}  // namespace

@implementation TLMTextPart {
  BOOL _isOneLine;
}

- (instancetype)initWithRole:(talmo::ViewRole)role container:(talmo::ViewRole)container {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  _isOneLine = role != talmo::ViewRole::body;
  // A label of the system.
  self.editable = NO;
  self.selectable = NO;
  self.bezeled = NO;
  self.bordered = NO;
  self.drawsBackground = NO;
  self.usesSingleLineMode = _isOneLine;
  // Before the way that lines end in, which it may set as well.
  self.cell.wraps = !_isOneLine;
  self.lineBreakMode = _isOneLine ? NSLineBreakByTruncatingTail : NSLineBreakByWordWrapping;
  self.maximumNumberOfLines = _isOneLine ? 1 : 0;
  self.allowsExpansionToolTips = _isOneLine;
  const TextLook look = TextLook::of(role, container);
  self.font = [NSFont systemFontOfSize:look.points weight:weightOf(look.weight)];
  self.textColor = talmo::colourOf(look.ink);
  // It gives way to what is beside it, but not to what is around it.
  [self setContentCompressionResistancePriority:NSLayoutPriorityDragThatCannotResizeWindow
                                 forOrientation:NSLayoutConstraintOrientationHorizontal];
  return self;
}

- (void)show:(const talmo::View&)view {
  NSString* const text = talmo::toNSString(view.text);
  if (![self.stringValue isEqualToString:text]) self.stringValue = text;
  if (!view.accessibilityLabel.empty()) {
    self.accessibilityLabel = talmo::toNSString(view.accessibilityLabel);
  }
}

- (void)wrapAtOwnWidth {
  if (_isOneLine) return;
  // The layout's width: a label's frame is a little wider than that.
  self.preferredMaxLayoutWidth = [self alignmentRectForFrame:self.frame].size.width;
}

@end
