#include "platform/macos/interface/view/TLMStackPart.h"

#include <optional>

#include "platform/macos/interface/view/Grounds.h"
#include "platform/macos/interface/view/Motion.h"
#include "platform/macos/interface/view/PartList.h"
#include "platform/macos/interface/view/StackLook.h"
#include "platform/macos/Text.h"

using talmo::ViewRole;

@implementation TLMStackPart {
  ViewRole _role;
  std::optional<talmo::PartList> _parts;
  // Above a footer.
  CALayer* _hairline;
}

- (instancetype)initWithView:(const talmo::View&)view
                   container:(ViewRole)container
                       maker:(talmo::MakePart)makePart {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  _role = view.role;
  const bool isColumn = view.kind == talmo::ViewKind::vertical;
  self.orientation = isColumn ? NSUserInterfaceLayoutOrientationVertical
                              : NSUserInterfaceLayoutOrientationHorizontal;
  self.alignment = isColumn ? NSLayoutAttributeLeading : NSLayoutAttributeCenterY;
  self.distribution = NSStackViewDistributionFill;
  self.spacing = talmo::spacingOf(_role);
  const talmo::Insets insets = talmo::insetsOf(_role, container);
  self.edgeInsets = NSEdgeInsetsMake(insets.top, insets.left, insets.bottom, insets.right);
  self.wantsLayer = YES;
  if (_role == ViewRole::footer) {
    _hairline = talmo::makeStillLayer();
    [self.layer addSublayer:_hairline];
  }
  _parts.emplace(self, _role, _role == ViewRole::group ? container : _role, makePart);
  return self;
}

- (void)show:(const talmo::View&)view {
  if (!view.accessibilityLabel.empty()) {
    self.accessibilityElement = YES;
    self.accessibilityRole = NSAccessibilityGroupRole;
    self.accessibilityLabel = talmo::toNSString(view.accessibilityLabel);
  }
  _parts->set(view.children);
}

- (BOOL)wantsUpdateLayer {
  return YES;
}

- (void)updateLayer {
  talmo::setStackGround(self.layer, _role);
  if (_hairline == nil) return;
  const NSSize size = self.bounds.size;
  const CGFloat height = 1 / self.layer.contentsScale;
  _hairline.frame = NSMakeRect(0, self.flipped ? 0 : size.height - height, size.width, height);
  talmo::setGround(_hairline, talmo::Ground::hairline);
}

- (void)viewDidChangeEffectiveAppearance {
  [super viewDidChangeEffectiveAppearance];
  self.needsDisplay = YES;
}

@end
