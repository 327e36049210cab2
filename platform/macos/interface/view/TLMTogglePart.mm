#include "platform/macos/interface/view/TLMTogglePart.h"

#include "platform/macos/interface/view/Grounds.h"
#include "platform/macos/interface/view/Motion.h"
#include "platform/macos/Text.h"

namespace {

constexpr CGFloat width = 42;
constexpr CGFloat height = 25;
constexpr CGFloat inset = 2.5;
constexpr CGFloat knobSide = height - 2 * inset;
constexpr CFTimeInterval slideSeconds = 0.18;

}  // namespace

@implementation TLMTogglePart {
  BOOL _isOn;
  CALayer* _knob;
}

- (instancetype)initWithOn:(BOOL)isOn {
  self = [super initWithFrame:NSMakeRect(0, 0, width, height)];
  if (self == nil) return nil;
  _isOn = isOn;
  self.wantsLayer = YES;
  _knob = talmo::makeStillLayer();
  _knob.cornerRadius = knobSide / 2;
  _knob.frame = [self knobPlace];
  [self.layer addSublayer:_knob];
  [self.widthAnchor constraintEqualToConstant:width].active = YES;
  [self.heightAnchor constraintEqualToConstant:height].active = YES;
  return self;
}

- (void)show:(const talmo::View&)view {
  self.accessibilityElement = YES;
  self.accessibilityRole = NSAccessibilityImageRole;
  self.accessibilityLabel = talmo::toNSString(view.accessibilityLabel);
  if (_isOn == (view.isOn ? YES : NO)) return;
  _isOn = view.isOn;
  const CGPoint before = _knob.position;
  _knob.frame = [self knobPlace];
  self.needsDisplay = YES;
  if (talmo::reducesMotion()) return;
  CABasicAnimation* const slide = [CABasicAnimation animationWithKeyPath:@"position.x"];
  slide.fromValue = @(before.x);
  slide.toValue = @(_knob.position.x);
  slide.duration = slideSeconds;
  slide.timingFunction =
      [CAMediaTimingFunction functionWithName:kCAMediaTimingFunctionEaseInEaseOut];
  [_knob addAnimation:slide forKey:@"slide"];
}

- (BOOL)wantsUpdateLayer {
  return YES;
}

- (void)updateLayer {
  talmo::setGround(self.layer, _isOn ? talmo::Ground::prominent : talmo::Ground::toggleOff);
  self.layer.cornerRadius = height / 2;
  talmo::setGround(_knob, talmo::Ground::toggleKnob);
}

- (void)viewDidChangeEffectiveAppearance {
  [super viewDidChangeEffectiveAppearance];
  self.needsDisplay = YES;
}

- (CGRect)knobPlace {
  const bool isRightToLeft =
      self.userInterfaceLayoutDirection == NSUserInterfaceLayoutDirectionRightToLeft;
  const bool isAtRight = static_cast<bool>(_isOn) != isRightToLeft;
  return CGRectMake(isAtRight ? width - inset - knobSide : inset, inset, knobSide, knobSide);
}

@end
