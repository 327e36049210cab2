#include "platform/macos/interface/view/TLMSegmentPart.h"

#include "platform/macos/interface/view/Grounds.h"

namespace {

constexpr CGFloat length = 36;
constexpr CGFloat thickness = 4;

}  // namespace

@implementation TLMSegmentPart {
  BOOL _isOn;
}

- (instancetype)init {
  self = [super initWithFrame:NSMakeRect(0, 0, length, thickness)];
  if (self == nil) return nil;
  self.wantsLayer = YES;
  [self.widthAnchor constraintEqualToConstant:length].active = YES;
  [self.heightAnchor constraintEqualToConstant:thickness].active = YES;
  return self;
}

- (void)show:(const talmo::View&)view {
  _isOn = view.isOn;
  self.needsDisplay = YES;
}

- (BOOL)wantsUpdateLayer {
  return YES;
}

- (void)updateLayer {
  talmo::setGround(self.layer, _isOn ? talmo::Ground::prominent : talmo::Ground::segment);
  self.layer.cornerRadius = thickness / 2;
}

- (void)viewDidChangeEffectiveAppearance {
  [super viewDidChangeEffectiveAppearance];
  self.needsDisplay = YES;
}

@end
