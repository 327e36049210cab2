#include "platform/macos/interface/view/TLMPicturePart.h"

#include <optional>

#include "platform/macos/interface/view/Grounds.h"
#include "platform/macos/interface/view/Metrics.h"
#include "platform/macos/interface/view/Motion.h"
#include "platform/macos/interface/view/Palette.h"
#include "platform/macos/interface/view/Pictures.h"
#include "platform/macos/interface/view/SymbolLook.h"
#include "platform/macos/Text.h"

using talmo::ViewRole;

@implementation TLMPicturePart {
  ViewRole _role;
  std::optional<talmo::Image> _image;
  CALayer* _picture;
}

- (instancetype)initWithRole:(ViewRole)role {
  const CGFloat side = talmo::pictureSideOf(role);
  self = [super initWithFrame:NSMakeRect(0, 0, side, side)];
  if (self == nil) return nil;
  _role = role;
  self.wantsLayer = YES;
  _picture = talmo::makeStillLayer();
  _picture.frame = self.bounds;
  // A large artwork is thinned out well, too.
  _picture.minificationFilter = kCAFilterTrilinear;
  [self.layer addSublayer:_picture];
  [self.widthAnchor constraintEqualToConstant:side].active = YES;
  [self.heightAnchor constraintEqualToConstant:side].active = YES;
  return self;
}

- (void)show:(const talmo::View&)view {
  const BOOL isNamed = !view.accessibilityLabel.empty();
  self.accessibilityElement = isNamed;
  if (isNamed) {
    self.accessibilityRole = NSAccessibilityImageRole;
    self.accessibilityLabel = talmo::toNSString(view.accessibilityLabel);
  }
  if (_image == view.image) return;
  _image = view.image;
  if (_image) {
    _picture.contents = CFBridgingRelease(talmo::createSystemImage(*_image));
  } else {
    _picture.contents = nil;
  }
  const BOOL isIcon = [self isIcon];
  _picture.contentsGravity = isIcon ? kCAGravityResizeAspect : kCAGravityResizeAspectFill;
  _picture.cornerRadius = isIcon ? 0 : talmo::Metrics::artworkRadius;
  _picture.masksToBounds = !isIcon;
  self.needsDisplay = YES;
}

- (BOOL)wantsUpdateLayer {
  return YES;
}

- (void)updateLayer {
  // A light cover has an edge on a light card, too.
  _picture.borderWidth = [self isIcon] ? 0 : 1 / self.layer.contentsScale;
  _picture.borderColor = talmo::colourOf(talmo::Ground::cardBorder).CGColor;
}

- (void)viewDidChangeEffectiveAppearance {
  [super viewDidChangeEffectiveAppearance];
  self.needsDisplay = YES;
}

/// Whether its corners are its own: an application's icon stands in for an artwork.
- (BOOL)isIcon {
  return !_image || _role == ViewRole::icon || _image->pixels->at(3) == 0;
}

@end
