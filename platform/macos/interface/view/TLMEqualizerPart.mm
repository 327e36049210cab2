#include "platform/macos/interface/view/TLMEqualizerPart.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "platform/macos/interface/view/EqualizerBar.h"
#include "platform/macos/interface/view/Grounds.h"
#include "platform/macos/interface/view/Motion.h"
#include "platform/macos/Text.h"

using talmo::EqualizerBar;
using talmo::equalizerBars;

namespace {

NSString* const dance = @"dance";

CABasicAnimation* danceOf(const EqualizerBar& bar) {
  CABasicAnimation* const up = [CABasicAnimation animationWithKeyPath:@"bounds.size.height"];
  up.fromValue = @(EqualizerBar::low);
  up.toValue = @(EqualizerBar::high);
  // Up only: it goes down as it came.
  up.duration = bar.duration / 2;
  up.autoreverses = YES;
  up.timeOffset = bar.phase * bar.duration;
  up.repeatCount = HUGE_VALF;
  up.timingFunction = [CAMediaTimingFunction functionWithName:kCAMediaTimingFunctionEaseInEaseOut];
  up.removedOnCompletion = NO;
  return up;
}

}  // namespace

@implementation TLMEqualizerPart {
  BOOL _isOn;
  std::array<CALayer*, equalizerBars.size()> _bars;
}

- (instancetype)init {
  const CGFloat width = EqualizerBar::leftEdge(equalizerBars.size() - 1) + EqualizerBar::width;
  self = [super initWithFrame:NSMakeRect(0, 0, width, EqualizerBar::high)];
  if (self == nil) return nil;
  self.wantsLayer = YES;
  for (std::size_t index = 0; index < equalizerBars.size(); ++index) {
    CALayer* const bar = talmo::makeStillLayer();
    // They stand on their lower edge; the view's y is upwards.
    bar.anchorPoint = CGPointMake(0, 0);
    bar.position = CGPointMake(EqualizerBar::leftEdge(index), 0);
    bar.bounds = CGRectMake(0, 0, EqualizerBar::width, EqualizerBar::low);
    bar.cornerRadius = EqualizerBar::width / 2;
    [self.layer addSublayer:bar];
    _bars.at(index) = bar;
  }
  [self.widthAnchor constraintEqualToConstant:width].active = YES;
  [self.heightAnchor constraintEqualToConstant:EqualizerBar::high].active = YES;
  [[[NSWorkspace sharedWorkspace] notificationCenter]
      addObserver:self
         selector:@selector(seenOtherwise:)
             name:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
           object:nil];
  return self;
}

- (void)show:(const talmo::View&)view {
  const BOOL isNamed = !view.accessibilityLabel.empty();
  self.accessibilityElement = isNamed;
  if (isNamed) {
    self.accessibilityRole = NSAccessibilityImageRole;
    self.accessibilityLabel = talmo::toNSString(view.accessibilityLabel);
  }
  _isOn = view.isOn;
  [self danceOrRest];
}

- (void)viewDidMoveToWindow {
  [super viewDidMoveToWindow];
  NSNotificationCenter* const centre = [NSNotificationCenter defaultCenter];
  [centre removeObserver:self name:NSWindowDidChangeOcclusionStateNotification object:nil];
  if (self.window != nil) {
    [centre addObserver:self selector:@selector(seenOtherwise:)
                   name:NSWindowDidChangeOcclusionStateNotification
                 object:self.window];
  }
  [self danceOrRest];
}

- (BOOL)wantsUpdateLayer {
  return YES;
}

- (void)updateLayer {
  for (CALayer* bar : _bars) talmo::setGround(bar, talmo::Ground::prominent);
}

- (void)viewDidChangeEffectiveAppearance {
  [super viewDidChangeEffectiveAppearance];
  self.needsDisplay = YES;
}

- (void)seenOtherwise:(NSNotification*)notification {
  [self danceOrRest];
}

- (void)danceOrRest {
  const bool isSeen = (self.window.occlusionState & NSWindowOcclusionStateVisible) != 0;
  const bool dances = _isOn && isSeen && !talmo::reducesMotion();
  for (std::size_t index = 0; index < _bars.size(); ++index) {
    CALayer* const layer = _bars.at(index);
    const EqualizerBar& bar = equalizerBars.at(index);
    layer.bounds =
        CGRectMake(0, 0, EqualizerBar::width, _isOn ? bar.stillHeight() : EqualizerBar::low);
    if (!dances) {
      [layer removeAnimationForKey:dance];
    } else if ([layer animationForKey:dance] == nil) {
      [layer addAnimation:danceOf(bar) forKey:dance];
    }
  }
}

@end
