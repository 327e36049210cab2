#include "platform/macos/interface/view/TLMSymbolPart.h"

#include "platform/macos/interface/view/Grounds.h"
#include "platform/macos/interface/view/Metrics.h"
#include "platform/macos/interface/view/Palette.h"
#include "platform/macos/interface/view/SymbolLook.h"
#include "platform/macos/Text.h"

using talmo::SymbolLook;
using talmo::ViewRole;

@implementation TLMSymbolPart {
  BOOL _isSymbol;
  BOOL _isTile;
  ViewRole _role;
  NSString* _name;
  NSImageView* _imageView;
}

- (instancetype)initWithView:(const talmo::View&)view container:(ViewRole)container {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  const SymbolLook look = SymbolLook::of(view.role, container);
  _role = view.role;
  _isSymbol = view.kind == talmo::ViewKind::symbol;
  _isTile = _isSymbol && look.isTile;
  _imageView = [[NSImageView alloc] initWithFrame:NSZeroRect];
  if (_isSymbol) {
    _imageView.imageScaling = NSImageScaleNone;
    _imageView.symbolConfiguration =
        [NSImageSymbolConfiguration configurationWithPointSize:look.points
                                                        weight:NSFontWeightMedium];
    _imageView.contentTintColor = talmo::colourOf(look.ink);
  } else {
    _imageView.imageScaling = NSImageScaleProportionallyUpOrDown;
  }
  _imageView.accessibilityElement = NO;
  _imageView.frame = self.bounds;
  _imageView.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
  [self addSubview:_imageView];
  self.wantsLayer = YES;
  const CGFloat side = _isSymbol ? look.side : talmo::pictureSideOf(_role);
  [self.widthAnchor constraintEqualToConstant:side].active = YES;
  [self.heightAnchor constraintEqualToConstant:side].active = YES;
  return self;
}

- (void)show:(const talmo::View&)view {
  NSString* const name = talmo::toNSString(view.text);
  if (![name isEqualToString:_name]) {
    _name = name;
    _imageView.image = _isSymbol
                           ? [NSImage imageWithSystemSymbolName:name accessibilityDescription:nil]
                           : [NSImage imageNamed:name];
  }
  const BOOL isNamed = !view.accessibilityLabel.empty();
  self.accessibilityElement = isNamed;
  if (!isNamed) return;
  self.accessibilityRole = NSAccessibilityImageRole;
  self.accessibilityLabel = talmo::toNSString(view.accessibilityLabel);
}

- (BOOL)wantsUpdateLayer {
  return YES;
}

- (void)updateLayer {
  if (!_isTile) return;
  talmo::setGround(self.layer, talmo::Ground::tile);
  self.layer.cornerRadius =
      _role == ViewRole::artwork ? talmo::Metrics::artworkRadius : talmo::Metrics::rowRadius;
}

- (void)viewDidChangeEffectiveAppearance {
  [super viewDidChangeEffectiveAppearance];
  self.needsDisplay = YES;
}

@end
